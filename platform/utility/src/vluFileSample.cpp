#include "vluFileSample.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace {

std::string read_at(int file, std::uint64_t place, std::size_t count) {
  std::string bytes(count, '\0');
  std::size_t filled = 0;
  while (filled < count) {
    const ssize_t got = pread(file, bytes.data() + filled, count - filled, static_cast<off_t>(place + filled));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

std::optional<vluFileSample> vluFileSample::take(const utString& path) {
  if (path.empty() || path.view().find('\0') != std::string_view::npos) return {};
  const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (file < 0) return {};

  struct stat status;
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size <= 0) {
    close(file);
    return {};
  }
  const auto size = static_cast<std::uint64_t>(status.st_size);
  return vluFileSample(file, size, read_at(file, 0, static_cast<std::size_t>(std::min<std::uint64_t>(size, bound))));
}

vluFileSample::vluFileSample(int file, std::uint64_t size, std::string head)
    : file_(file), size_(size), head_(std::move(head)) {
  text_ = head_;
  if (text_.starts_with("\xEF\xBB\xBF")) text_.remove_prefix(3);
  if (text_.find('\0') != std::string_view::npos) text_ = {};
}

vluFileSample::vluFileSample(vluFileSample&& other) noexcept
    : vluFileSample(std::exchange(other.file_, -1), other.size_, std::move(other.head_)) {}

vluFileSample::~vluFileSample() {
  if (file_ >= 0) close(file_);
}

std::string_view vluFileSample::tail() const {
  if (head_is_all()) return head_;
  if (!tail_) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(size_, bound));
    tail_ = read_at(file_, size_ - count, count);
  }
  return *tail_;
}
