#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "coDynArr.h"
#include "utString.h"
#include "vlnExport.h"
#include "vlnPathListError.h"

// A list of directories as character strings. Duplicates and empty entries are removed, a leading "~" is replaced by
// the value of HOME, and each candidate is checked on disk. Returned `char*` strings are allocated with malloc; the
// caller frees them with free. A null pointer means not found. A null name is never found; a null list is empty. Not
// thread-safe.
class VLN_API vlnPathList {
 public:
  // Directories separated by ";".
  explicit vlnPathList(const char* list);
  ~vlnPathList();

  // The first path at which `name` is a file. An absolute name is tested unchanged, without the list; it begins with
  // "/", a backslash or "~", with or without a drive letter before it. In the directory "." the bare name is tested.
  char* search(const char* name);
  // Like `search`, for a directory.
  char* search_dir(const char* name);

  // Appends every regular file whose name matches "*." and the extension, directory by directory, sorted by name within
  // each. Case is ignored. In the extension "*" matches any characters and "?" one. A name in an earlier directory
  // hides the same name in later ones. An empty extension gives names without a dot, a null one nothing.
  void search_by_extension(utStringcoDynArr& found, const char* extension);

  // `list` with every "<exe_dir>" replaced, anywhere in the text. A placeholder that results from a replacement is
  // replaced too, unless `exe_dir` contains one. Empty text for a null list.
  static char* expand_list(const char* list, const utString& exe_dir);

 protected:
  char* search(const char* name, vlnPathListError wanted);

  void add(const char* path);
  void add_list(const char* list);
  vlnPathListError check_access(const char* path);
  // Nonzero if the list contains exactly this text.
  int in_list(const char* path);
  int absolute_path(const char* path);
  // The backslash character.
  char path_slash() { return path_slash_; }
  // Replaces "/" by a backslash in the first `length` characters, in place. The result is for comparisons only, not for
  // the file system.
  const char* path_verify(char* path, int length);
  // Returns 1 if every ":" follows a drive letter at the start of an entry, else 0.
  int valid_colon_check(const char* list);

 private:
  char list_separator_ = ';';
  char path_slash_ = '\\';
  char alt_slash_ = '/';
  std::vector<utString> directories_;
  std::unordered_set<std::string> listed_;  // the same directories
};
