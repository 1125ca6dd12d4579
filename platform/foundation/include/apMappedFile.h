#pragma once

#include <memory>
#include <string_view>

#include "apExport.h"
#include "apStatus.h"

// The bytes of a file, mapped for one pass from start to end. Only regular files are opened, so a pipe or a device
// never blocks. An empty file maps to empty bytes. If the file is truncated while it is mapped, access to the missing
// bytes ends the process with a signal.
class VELPLATFORM_API apMappedFile {
 public:
  // Returns null, and a status with the reason, if the file cannot be opened. `path` is the name in the system's bytes.
  static std::unique_ptr<apMappedFile> open(const utString& path, apStatus& status);
  ~apMappedFile();
  apMappedFile(const apMappedFile&) = delete;
  apMappedFile& operator=(const apMappedFile&) = delete;

  std::string_view bytes() const { return bytes_; }

  // Advises the system that the first `count` bytes are no longer needed, so that they use no memory. Cheap to call
  // often; acts in steps of megabytes.
  void release_front(std::size_t count);

 private:
  explicit apMappedFile(std::string_view bytes) : bytes_(bytes) {}
  std::string_view bytes_;
  std::size_t released_ = 0;
};
