#include "vluFileHelpers.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

namespace {

bool look_up(const utString& path, struct stat& status) {
  return stat(path.c_str(), &status) == 0;
}

}  // namespace

vluFileError vlu_make_directory(const utString& path) {
  if (mkdir(path.c_str(), 0700) == 0) return vluFILE_MADE;
  if (errno != EEXIST) return vluFILE_NOT_MADE;
  return vlu_check_directory_exists(path) == vluFILE_IS_DIRECTORY ? vluFILE_IS_DIRECTORY : vluFILE_NOT_MADE;
}

vluFileError vlu_check_directory_exists(const utString& path) {
  struct stat status;
  if (!look_up(path, status)) return vluFILE_NOT_FOUND;
  return S_ISDIR(status.st_mode) ? vluFILE_IS_DIRECTORY : vluFILE_IS_NO_FILE;
}

vluFileError vlu_check_file_exists(const utString& path) {
  struct stat status;
  if (!look_up(path, status)) return vluFILE_NOT_FOUND;
  return S_ISREG(status.st_mode) || S_ISCHR(status.st_mode) ? vluFILE_IS_FILE : vluFILE_IS_NO_FILE;
}

vluFileError vlu_remove_file(const utString& path) {
  if (unlink(path.c_str()) == 0) return vluFILE_DONE;
  return errno == ENOENT || errno == ENOTDIR ? vluFILE_NOT_FOUND : vluFILE_NOT_REMOVED;
}

utString vlu_make_temp_file_name(const utString& name) {
  // Only an absolute directory: the name must stay valid if the process changes its directory.
  const char* chosen = std::getenv("TMPDIR");
  std::string path = chosen && *chosen == '/' ? chosen : "/tmp";
  if (path.back() != '/') path += '/';
  path += name.str().substr(name.str().rfind('/') + 1);
  return path + vlu_random_text().str();
}
