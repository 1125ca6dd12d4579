#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "coDynArr.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnPathListError.h"

// The older list of directories, on character strings: duplicates and empty entries are dropped, a leading "~" becomes
// the value of HOME, and each candidate is tested for what it is. Strings that it returns as `char*` are allocated with
// malloc and belong to the caller, who frees them with free; a null pointer means not found. A null name is not found,
// a null list is empty. Not for several threads.
class VLN_API vlnPathList {
 public:
  // Directories with ";" between them.
  explicit vlnPathList(const char* list);
  ~vlnPathList();

  // The first path at which `name` is a file. An absolute name (leading "/", backslash or "~", a drive letter before
  // them included) is tested as it stands, without the list; in the directory "." it is tested bare.
  char* search(const char* name);
  // The same for a directory.
  char* search_dir(const char* name);

  // Appends every regular file whose name matches "*." and the extension, directory by directory and sorted by name
  // within each. Case is ignored; "*" and "?" in the extension match any characters and one. A name in an earlier
  // directory hides the same name in later ones. An empty extension gives names without a dot, a null one nothing.
  void search_by_extension(utStringcoDynArr& found, const char* extension);

  // `list` with every "<exe_dir>", wherever it is, replaced. Placeholders that a replacement completes are replaced
  // too, unless `exe_dir` holds one itself. Empty text for a null list.
  static char* expand_list(const char* list, const utString& exe_dir);

 protected:
  char* search(const char* name, vlnPathListError wanted);

  void add(const char* path);
  void add_list(const char* list);
  vlnPathListError check_access(const char* path);
  // Nonzero when the list holds exactly this text.
  int in_list(const char* path);
  int absolute_path(const char* path);
  // The backslash.
  char path_slash() { return path_slash_; }
  // Turns "/" into the backslash in the first `length` characters, in place. The result is for comparing, never for the
  // file system.
  const char* path_verify(char* path, int length);
  // 1 when every ":" stands behind a drive letter at the start of an entry, else 0.
  int valid_colon_check(const char* list);

 private:
  char list_separator_ = ';';
  char path_slash_ = '\\';
  char alt_slash_ = '/';
  std::vector<utString> directories_;
  std::unordered_set<std::string> listed_;  // the same directories
};
