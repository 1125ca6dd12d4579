#pragma once

#include <vector>

#include "coDynArr.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnPathListError.h"

// The older list of directories, on character strings: duplicates and empty entries are dropped, a leading "~" becomes
// the value of HOME, and each candidate is tested for what it is. Strings that it returns as `char*` are allocated with
// malloc and belong to the caller, who frees them with free; a null pointer means not found. Only the
// constructor takes a null list. Not for several threads.
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

  // Appends every regular file with the extension, directory by directory and sorted by name within each. A name in an
  // earlier directory hides the same name in later ones. An empty extension stands for names without a dot.
  void search_by_extension(utStringcoDynArr& found, const char* extension);

  // `list` with every "<exe_dir>", wherever it stands, replaced.
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
};
