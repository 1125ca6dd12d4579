#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "apExport.h"
#include "utString.h"

class velabsBackgroundWriter;
class velabsReplacementFile;

// An output file that appears only when it is complete. Bytes go to a new file, mode 0600, in the directory of the
// target, opened exclusively on the first write; `commit` puts it in the target's place in one step, with the target's
// old permissions or those that the user's mask leaves. Never committed, nothing is left. Where the file system can do
// it the new file has no name while it is written, so that not even a kill leaves one. An old target goes only when the
// new file is safe on the disk, so that a loss of power leaves one of the two. A target that is a device, a
// pipe or, as /dev/stdout, an open descriptor is written directly and has no companions: what is written to them is
// lost. One that is a link keeps being one, and one that the user may not write to is refused.
//
// Full buffers are written by a thread while the caller fills the next one, so a failure may show one buffer late. The
// first failure ends the writing: later calls do nothing and `good()` stays false.
class VELPLATFORM_API velabsOfStream {
 public:
  // `inputs` are the files that the written data come from: no companion takes their place or that of a file which one
  // of them names.
  explicit velabsOfStream(utString target, std::vector<utString> inputs = {});
  ~velabsOfStream();
  velabsOfStream(const velabsOfStream&) = delete;
  velabsOfStream& operator=(const velabsOfStream&) = delete;

  // The name that the file will have.
  const utString& target() const { return target_; }

  void write(std::string_view bytes);

  // For writers that format in place: room for `size` characters at the end of the buffer (at most `buffer_size`), of
  // which `used` count.
  static constexpr std::size_t buffer_size = std::size_t{1} << 20;
  char* reserve(std::size_t size);
  void advance(std::size_t used) { used_ += used; }

  // A further file beside this one, with `extension` in place of the target's, "mtl" for instance; committed with this
  // one. A file of that name is replaced only when it belongs to the old target alone, as far as can be seen: the old
  // target names it and no input does. Else it is left as it is, and the companion is called "out_1.mtl", "out_2.mtl"
  // and so on.
  velabsOfStream& companion(const utString& extension);

  // What a person should know of companions that could not have the name they were to have; null when all have it.
  utString told_of_companions() const;

  // False when the target is a device, a pipe or an open descriptor.
  bool has_room_beside() const;

  bool good() const { return failure_.is_null(); }
  // Why the writing failed, for people; null while all is well.
  const utString& failure() const { return failure_; }
  // The same of this file or else of the first companion that failed, with its name.
  utString failure_of_any() const;

  // Writes out what is buffered, then puts the companions and, last, this file in place. False when anything failed;
  // the targets are then as they were, but for a companion already replaced on a file system that cannot exchange
  // files. A second call does nothing and says the same.
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
  std::unique_ptr<velabsBackgroundWriter> writer_;  // from the first full buffer on; goes before the file
  std::vector<std::unique_ptr<velabsOfStream>> companions_;
  utString extension_, wished_;  // of a companion: as asked for, and the name that it makes
};
