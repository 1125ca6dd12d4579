#include "apMappedFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace {

// Closes on every way out; the mapping does not need the descriptor.
struct Descriptor {
  int number;
  ~Descriptor() {
    if (number >= 0) ::close(number);
  }
};

utString system_reason(int error) {
  return std::generic_category().message(error);
}

constexpr std::size_t release_step = std::size_t{8} << 20;

}  // namespace

std::unique_ptr<apMappedFile> apMappedFile::open(const utString& path, apStatus& status) {
  if (path.view().find('\0') != std::string_view::npos) {
    status.set_failure("the name holds a null character");
    return nullptr;
  }
  const Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)};
  struct stat info;
  if (file.number < 0 || fstat(file.number, &info) != 0) {
    status.set_failure(system_reason(errno));
    return nullptr;
  }
  if (!S_ISREG(info.st_mode)) {
    status.set_failure(S_ISDIR(info.st_mode) ? "it is a directory" : "it is not a regular file");
    return nullptr;
  }
  if (info.st_size == 0) return std::unique_ptr<apMappedFile>(new apMappedFile({}));

  const auto size = static_cast<std::size_t>(info.st_size);
  void* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number, 0);
  if (start == MAP_FAILED) {
    status.set_failure(system_reason(errno));
    return nullptr;
  }
  madvise(start, size, MADV_SEQUENTIAL);
  return std::unique_ptr<apMappedFile>(new apMappedFile({static_cast<const char*>(start), size}));
}

apMappedFile::~apMappedFile() {
  if (!bytes_.empty()) munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

void apMappedFile::release_front(std::size_t count) {
  count = std::min(count, bytes_.size()) / release_step * release_step;
  if (count <= released_) return;
  // Private and never written, so the pages come back from the file if they are looked at all the same.
  madvise(const_cast<char*>(bytes_.data()) + released_, count - released_, MADV_DONTNEED);
  released_ = count;
}
