#include "apRegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

utString system_reason(int error) {
  return std::generic_category().message(error);
}

utString reason_against(const struct stat& status) {
  if (S_ISREG(status.st_mode)) return {};
  return S_ISDIR(status.st_mode) ? "it is a directory" : "it is not a regular file";
}

}  // namespace

apRegularFile::apRegularFile(const utString& path, apStatus& status) {
  const utString reason = open(path);
  if (reason.is_null()) return;
  status.set_failure(reason);
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

utString apRegularFile::open(const utString& path) {
  if (path.view().find('\0') != std::string_view::npos) return "the name holds a null character";
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return system_reason(errno);
  if (utString reason = reason_against(info); !reason.is_null()) return reason;

  // What stands there may have changed since, so the opening does not wait either.
  descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor_ < 0 || fstat(descriptor_, &info) != 0) return system_reason(errno);
  size_ = static_cast<std::uint64_t>(info.st_size);
  return reason_against(info);
}

apRegularFile::~apRegularFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

apRegularFile::apRegularFile(apRegularFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), size_(other.size_) {}

std::size_t apRegularFile::read_at(std::uint64_t place, char* to, std::size_t count, apStatus& status) const {
  std::size_t filled = 0;
  while (filled < count) {
    const ssize_t got = pread(descriptor_, to + filled, count - filled, static_cast<off_t>(place + filled));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) status.set_failure(system_reason(errno));
    if (got <= 0) break;
    filled += static_cast<std::size_t>(got);
  }
  return filled;
}
