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

// Opens the file at a path without blocking. Returns null, or the reason if it is not a regular file that can be
// opened.
utString open_regular(const utString& path, int how, int& descriptor, struct stat& info) {
  if (path.view().find('\0') != std::string_view::npos) return "the name holds a null character";
  const bool is_new = stat(path.c_str(), &info) != 0;
  if (is_new && (errno != ENOENT || !(how & O_CREAT))) return system_reason(errno);
  if (!is_new) {
    if (utString reason = reason_against(info); !reason.is_null()) return reason;
  }
  // Does not block either, because the entry may have changed since the check.
  constexpr mode_t usual_mode = 0666;
  descriptor = open(path.c_str(), how | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, usual_mode);
  if (descriptor < 0 || fstat(descriptor, &info) != 0) return system_reason(errno);
  return reason_against(info);
}

}  // namespace

apRegularFile::apRegularFile(const utString& path, apStatus& status) {
  struct stat info {};
  const utString reason = open_regular(path, O_RDONLY, descriptor_, info);
  if (reason.is_null()) {
    size_ = static_cast<std::uint64_t>(info.st_size);
    return;
  }
  status.set_failure(reason);
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
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

apRegularFileWriter::apRegularFileWriter(const utString& path, apStatus& status) {
  struct stat info {};
  utString reason = open_regular(path, O_WRONLY | O_CREAT, descriptor_, info);
  // Truncated only now that it is known to be a regular file.
  if (reason.is_null() && ftruncate(descriptor_, 0) != 0) reason = system_reason(errno);
  good_ = reason.is_null();
  if (!good_) status.set_failure(reason);
}

apRegularFileWriter::~apRegularFileWriter() {
  if (descriptor_ >= 0) close(descriptor_);
}

void apRegularFileWriter::write(std::string_view bytes) {
  while (good_ && !bytes.empty()) {
    const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    good_ = written > 0;
    if (good_) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}
