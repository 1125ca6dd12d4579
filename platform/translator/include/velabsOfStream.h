#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "apExport.h"
#include "utString.h"

// An output file that appears only when it is complete. Bytes go to a new file, mode 0600, in the directory of the
// target, opened exclusively on the first write; `commit` puts it in the target's place in one step, with the target's
// old permissions or those that the user's mask leaves. Never committed, nothing is left. Where the file system can do
// it the new file has no name until then, so that not even a kill leaves one. A target that is a device or a pipe is
// written directly; one that is a link keeps being one.
//
// The first failure ends the writing: later calls do nothing and `good()` stays false.
class VELPLATFORM_API velabsOfStream {
 public:
  explicit velabsOfStream(utString target);
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

  // A further file beside this one, in place of the target's extension, "mtl" for instance; committed with this one.
  velabsOfStream& companion(const utString& extension);

  bool good() const { return failure_.is_null(); }
  // Why the writing failed, for people; null while all is well.
  const utString& failure() const { return failure_; }

  // Writes out what is buffered, then puts the companions and this file in place. False when anything failed; the
  // targets are then as they were.
  bool commit();

 private:
  struct File;

  void open();
  void flush();
  bool finish();
  bool put_in_place();

  utString target_;
  utString failure_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  std::unique_ptr<File> file_;
  std::vector<std::unique_ptr<velabsOfStream>> companions_;
};
