#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "apExport.h"
#include "apStatus.h"
#include "utString.h"

// A regular file opened for reading. Pipes, sockets and devices are not opened, because opening one can block, wake a
// writer or start an action of the device.
class VELPLATFORM_API apRegularFile {
 public:
  // Sets the status and is not `good` if the path does not name a readable regular file. `path` is the name in the
  // system's bytes.
  apRegularFile(const utString& path, apStatus& status);
  ~apRegularFile();
  apRegularFile(apRegularFile&& other) noexcept;
  apRegularFile& operator=(apRegularFile&&) = delete;

  bool good() const { return descriptor_ >= 0; }
  int descriptor() const { return descriptor_; }
  std::uint64_t size() const { return size_; }

  // Reads up to `count` bytes from offset `place`. Returns the number read: fewer at the end of the file, or after a
  // read error, which sets the status.
  std::size_t read_at(std::uint64_t place, char* to, std::size_t count, apStatus& status) const;

 private:
  int descriptor_ = -1;
  std::uint64_t size_ = 0;
};

// A regular file opened for writing. It is created if missing and truncated. As for reading, pipes, sockets and devices
// are not opened.
class VELPLATFORM_API apRegularFileWriter {
 public:
  // Sets the status and is not `good` if a regular file cannot be written at the path.
  apRegularFileWriter(const utString& path, apStatus& status);
  ~apRegularFileWriter();
  apRegularFileWriter(const apRegularFileWriter&) = delete;
  apRegularFileWriter& operator=(const apRegularFileWriter&) = delete;

  // False permanently after a byte could not be written.
  bool good() const { return good_; }

  // Appends `bytes` and passes them to the system at once. Does nothing unless `good`.
  void write(std::string_view bytes);

 private:
  int descriptor_ = -1;
  bool good_ = false;
};
