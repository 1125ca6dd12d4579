#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <string_view>

#include "utString.h"

// A new file that takes the place of its target when it is whole. Until it has a name the file goes with the process;
// a target that is a device or a pipe is written directly and has nothing to take the place of. Every operation that
// fails says why.
//
// The steps, each at most once: write, settle, replace, then keep or undo. Destroyed before `keep`, it leaves the
// target as it was, where the file system can exchange two files, and nothing beside it.
class velabsReplacementFile {
 public:
  // Null when the file cannot be made.
  static std::unique_ptr<velabsReplacementFile> open(const utString& target, utString& failure);

  // True for a device or a pipe.
  static bool is_written_directly(const utString& target);

  ~velabsReplacementFile();
  velabsReplacementFile(const velabsReplacementFile&) = delete;
  velabsReplacementFile& operator=(const velabsReplacementFile&) = delete;

  bool write(std::string_view bytes, utString& failure);

  // Gives the file its permissions and a name beside the target, so that what may fail is behind us before the first
  // target is touched.
  bool settle(utString& failure);

  bool replace(utString& failure);
  void undo();
  // Lets the old content go.
  void keep();

 private:
  velabsReplacementFile(int file, std::string target, std::string name, mode_t mode);

  static std::unique_ptr<velabsReplacementFile> open_directly(const std::string& target, utString& failure);

  int file_;
  std::string target_;  // behind links; empty for what is written directly
  std::string name_;    // beside the target; empty while the file has no name
  mode_t mode_;
  enum class Place { none, added, replaced, exchanged };
  Place place_ = Place::none;  // after an exchange `name_` is the old target
};
