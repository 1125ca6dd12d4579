#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "apExport.h"
#include "utString.h"

class velabsBackgroundWriter;
class velabsReplacementFile;

// An output file that appears only when it is complete. Bytes go to a new file, mode 0600, in the target's directory,
// created exclusively at the first write. `commit` replaces the target in one step and sets the target's old
// permissions or those of the user's mask. Without `commit` the new file is removed.
//
// If the file system supports it, the new file has no name while it is written, so that it disappears even if the
// process is killed. An old target is replaced only after the new file is safe on the disk, so that one of the two
// survives a loss of power.
//
// A target that is a device, a pipe or, like /dev/stdout, an open descriptor is written directly. It has no sidecar
// files: what is written to them is discarded. A link stays a link, and the file that it points to is replaced. A
// target that the user may not write to is rejected.
//
// Full buffers are written by a thread while the caller fills the next one, so a failure may be reported one buffer
// late. After the first failure later calls do nothing and `good()` stays false.
class VELPLATFORM_API velabsOfStream {
 public:
  // `inputs` are the source files of the written data: a sidecar file never replaces one of them or a file that one of
  // them names.
  explicit velabsOfStream(utString target, std::vector<utString> inputs = {});
  ~velabsOfStream();
  velabsOfStream(const velabsOfStream&) = delete;
  velabsOfStream& operator=(const velabsOfStream&) = delete;

  // The final name of the file.
  const utString& target() const { return target_; }

  void write(std::string_view bytes);

  // For writers that format in place: `reserve` returns room for `size` characters at the end of the buffer (at most
  // `buffer_size`), and `advance` declares `used` of them as written.
  static constexpr std::size_t buffer_size = std::size_t{1} << 20;
  char* reserve(std::size_t size);
  void advance(std::size_t used) { used_ += used; }

  // A sidecar file beside this one, for example with the extension "mtl" instead of the target's; committed with this
  // one. An existing file of that name is replaced only if it belongs to the old target alone: the old target names it
  // and no input does. Else it is kept, and the sidecar file is named "out_1.mtl", "out_2.mtl" and so on.
  velabsOfStream& companion(const utString& extension);

  // A note naming the sidecar files that had to be renamed; null if none was.
  utString told_of_companions() const;

  // False when the target is a device, a pipe or an open descriptor.
  bool has_room_beside() const;

  bool good() const { return failure_.is_null(); }
  // The reason for the failure, as human-readable text; null if there was none.
  const utString& failure() const { return failure_; }
  // The failure of this file, or else of the first sidecar file that failed, with its name.
  utString failure_of_any() const;

  // Writes the buffered bytes, then replaces the sidecar files and, last, this file. Returns false if anything failed;
  // the targets are then unchanged, except that a sidecar file may already be replaced if the file system cannot
  // exchange files. A second call does nothing and returns the same.
  bool commit();

 private:
  void open();
  void hand_over();
  void put(std::string_view bytes);
  bool finish();
  bool settle(bool on_disk);

  utString target_;
  std::vector<utString> inputs_;
  utString failure_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  bool discards_ = false;
  bool committed_ = false;
  std::unique_ptr<velabsReplacementFile> file_;
  std::unique_ptr<velabsBackgroundWriter> writer_;  // created at the first full buffer; destroyed before the file
  std::vector<std::unique_ptr<velabsOfStream>> companions_;
  utString extension_, wished_;  // of a sidecar file: as requested, and the preferred name
};
