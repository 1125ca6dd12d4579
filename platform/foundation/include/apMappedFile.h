#pragma once

#include <memory>
#include <string_view>

#include "apExport.h"
#include "apStatus.h"

// The bytes of a file, mapped for one pass from front to back. Only regular files are opened, so a pipe or a device
// never blocks. An empty file maps to empty bytes. A file that somebody cuts short while it is mapped ends the process
// where the missing bytes are looked at, as the system has it.
class VELPLATFORM_API apMappedFile {
 public:
  // Null, and a status that names the reason, when the file cannot be opened. `path` is the name as the system takes
  // it.
  static std::unique_ptr<apMappedFile> open(const utString& path, apStatus& status);
  ~apMappedFile();
  apMappedFile(const apMappedFile&) = delete;
  apMappedFile& operator=(const apMappedFile&) = delete;

  std::string_view bytes() const { return bytes_; }

  // Tells the system that the first `count` bytes will not be looked at again, so that they take no memory. Cheap to
  // call often; acts in steps of megabytes.
  void release_front(std::size_t count);

 private:
  explicit apMappedFile(std::string_view bytes) : bytes_(bytes) {}
  std::string_view bytes_;
  std::size_t released_ = 0;
};
