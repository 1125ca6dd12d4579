#pragma once

#include <cstddef>
#include <cstdint>

#include "apExport.h"
#include "apStatus.h"
#include "utString.h"

// A regular file opened for reading. Pipes, sockets and devices are not even opened, because opening one can block,
// wake whoever writes to it or act on the device.
class VELPLATFORM_API apRegularFile {
 public:
  // Sets the status and is not `good` when the path names no regular file that can be read. `path` is the name as the
  // system takes it.
  apRegularFile(const utString& path, apStatus& status);
  ~apRegularFile();
  apRegularFile(apRegularFile&& other) noexcept;
  apRegularFile& operator=(apRegularFile&&) = delete;

  bool good() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  std::uint64_t size() const { return size_; }

  // Up to `count` bytes from `place` on; fewer at the end of the file, or, with a failed status, when it cannot be
  // read.
  std::size_t read_at(std::uint64_t place, char* to, std::size_t count, apStatus& status) const;

 private:
  // Null, or why not.
  utString open(const utString& path);

  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};
