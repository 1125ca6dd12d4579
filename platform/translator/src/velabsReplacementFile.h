#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <string_view>

#include "utString.h"

// A new file that takes the place of its target when it is whole. Until it has a name the file goes with the process;
// a target that is a device, a pipe or an open descriptor (/dev/stdout) is written directly and has nothing to take the
// place of. Every operation that fails says why.
//
// The steps, each at most once: write, settle, then take, or replace and keep or undo. Destroyed before `take` or
// `keep`, it leaves the target as it was, where the file system can exchange two files, and nothing beside it.
class velabsReplacementFile {
 public:
  // Null when the file cannot be made.
  static std::unique_ptr<velabsReplacementFile> open(const utString& target, utString& failure);

  // True for a device, a pipe, and what leads to an open descriptor even of a common file: others write there too.
  static bool is_written_directly(const utString& target);

  ~velabsReplacementFile();
  velabsReplacementFile(const velabsReplacementFile&) = delete;
  velabsReplacementFile& operator=(const velabsReplacementFile&) = delete;

  bool write(std::string_view bytes, utString& failure);

  // Whether there is an old file, so that something can be lost.
  bool has_old() const { return has_old_; }

  // Gives the file its permissions, its old owner where that is allowed, and a name beside the target, so that what may
  // fail is behind us before the first target is touched. Closes the file, since some file systems find only then that
  // there is no space. With `on_disk` it also waits until the bytes are safe there: an old file may only go for a new
  // one that a loss of power leaves whole.
  bool settle(bool on_disk, utString& failure);

  // Takes the place of the target for good, in one step: at every moment, even of a kill, one of the two is there.
  bool take(utString& failure);

  // Takes it so that it can be undone.
  bool replace(utString& failure);
  void undo();
  // Lets the old content go.
  void keep();

 private:
  velabsReplacementFile(int file, std::string target, std::string name, mode_t mode, bool has_old);
  bool close_file();

  static std::unique_ptr<velabsReplacementFile> open_directly(const std::string& target, utString& failure);

  int file_;            // negative once closed
  std::string target_;  // behind links; empty for what is written directly
  std::string name_;    // beside the target; empty while the file has no name
  mode_t mode_;
  bool has_old_;
  enum class Place { none, added, replaced, exchanged };
  Place place_ = Place::none;  // after an exchange `name_` is the old target
};
