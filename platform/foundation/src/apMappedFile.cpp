#include "apMappedFile.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "apRegularFile.h"

namespace {

utString system_reason(int error) {
  return std::generic_category().message(error);
}

constexpr std::size_t release_step = std::size_t{8} << 20;

}  // namespace

std::unique_ptr<apMappedFile> apMappedFile::open(const utString& path, apStatus& status) {
  const apRegularFile file(path, status);
  if (!file.good()) return nullptr;
  if (file.size() == 0) return std::unique_ptr<apMappedFile>(new apMappedFile({}));

  const auto size = static_cast<std::size_t>(file.size());
  void* start = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.descriptor(), 0);
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
  // The mapping is private and never written, so later access reads the pages from the file again.
  madvise(const_cast<char*>(bytes_.data()) + released_, count - released_, MADV_DONTNEED);
  released_ = count;
}
