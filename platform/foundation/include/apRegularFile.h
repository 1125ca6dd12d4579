#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

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
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};

// A regular file opened for writing, empty at first. It is made when there is none. As for reading, pipes, sockets and
// devices are not opened.
class VELPLATFORM_API apRegularFileWriter {
 public:
  // Sets the status and is not `good` when no regular file can be written under the path.
  apRegularFileWriter(const utString& path, apStatus& status);
  ~apRegularFileWriter();
  apRegularFileWriter(const apRegularFileWriter&) = delete;
  apRegularFileWriter& operator=(const apRegularFileWriter&) = delete;

  // False for good once a byte could not be written.
  bool good() const { return good_; }

  // Appends; the bytes are with the system when it returns. Does nothing unless `good`.
  void write(std::string_view bytes);

 private:
  int descriptor_ = -1;
  bool good_ = false;
};
