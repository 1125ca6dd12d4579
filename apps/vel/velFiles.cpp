#include "velFiles.h"

#include <sys/stat.h>

#include "vlnFileFactory.h"

vlnFile vel_file(const std::string& name) {
  static const vlnFileFactory factory(nullptr, nullptr);
  return factory.file(name);
}

std::string vel_last_component(const std::string& name) {
  const vlnFile file = vel_file(name);
  const std::string& directory = file.get_path_element(vlnFileDirectory).str();
  const std::size_t behind = directory == "/" ? 1 : directory.size() + 1;
  return file.full_path().substr(behind).str();
}

bool vel_is_same_file(const std::string& left, const std::string& right) {
  struct stat one = {};
  struct stat other = {};
  const bool left_exists = stat(left.c_str(), &one) == 0;
  const bool right_exists = stat(right.c_str(), &other) == 0;
  if (left_exists && right_exists) return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
  // The equality operator of files ignores case, so compare the paths.
  return left_exists == right_exists && vel_file(left).full_path() == vel_file(right).full_path();
}
