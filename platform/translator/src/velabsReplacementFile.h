#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <string_view>

#include "utString.h"

// A new file that replaces its target when it is complete. Until it has a name the file disappears with the process. A
// target that is a device, a pipe or an open descriptor (/dev/stdout) is written directly and not replaced. Every
// operation that fails gives the reason in `failure`.
//
// The steps, each at most once: write, settle, then take, or replace and keep or undo. Destroyed before `take` or
// `keep`, it leaves the target unchanged, if the file system can exchange two files, and removes the new file.
class velabsReplacementFile {
 public:
  // Null if the file cannot be created.
  static std::unique_ptr<velabsReplacementFile> open(const utString& target, utString& failure);

  // True for a device, a pipe, and a path to an open descriptor even of a regular file, because other code writes there
  // too.
  static bool is_written_directly(const utString& target);

  ~velabsReplacementFile();
  velabsReplacementFile(const velabsReplacementFile&) = delete;
  velabsReplacementFile& operator=(const velabsReplacementFile&) = delete;

  bool write(std::string_view bytes, utString& failure);

  // Whether there is an old file, which a failure could lose.
  bool has_old() const { return has_old_; }

  // Sets the permissions, the old owner if that is allowed, and a name beside the target, so that these steps cannot
  // fail after the first target is changed. Closes the file, since some file systems report a full disk only then. With
  // `on_disk` it also waits until the bytes are on the disk: an old file may only be replaced by a new one that
  // survives a loss of power.
  bool settle(bool on_disk, utString& failure);

  // Replaces the target permanently, in one step: one of the two exists at every moment, even if the process is killed.
  bool take(utString& failure);

  // Replaces the target so that it can be undone.
  bool replace(utString& failure);
  void undo();
  // Removes the old content.
  void keep();

 private:
  velabsReplacementFile(int file, std::string target, std::string name, mode_t mode, bool has_old);
  bool close_file();

  static std::unique_ptr<velabsReplacementFile> open_directly(const std::string& target, utString& failure);

  int file_;            // negative once closed
  std::string target_;  // with links resolved; empty if the target is written directly
  std::string name_;    // beside the target; empty while the file has no name
  mode_t mode_;
  bool has_old_;
  enum class Place { none, added, replaced, exchanged };
  Place place_ = Place::none;  // after an exchange `name_` is the old target
};
