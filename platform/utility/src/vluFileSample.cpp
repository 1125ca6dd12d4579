#include "vluFileSample.h"

#include <algorithm>
#include <utility>

namespace {

std::string bytes_at(const apRegularFile& file, std::uint64_t place, std::uint64_t count) {
  std::string bytes(static_cast<std::size_t>(count), '\0');
  apStatus ignored;
  bytes.resize(file.read_at(place, bytes.data(), bytes.size(), ignored));
  return bytes;
}

}  // namespace

std::optional<vluFileSample> vluFileSample::take(const utString& path) {
  apStatus ignored;
  apRegularFile file(path, ignored);
  if (!file.good() || file.size() == 0) return {};
  std::string head = bytes_at(file, 0, std::min<std::uint64_t>(file.size(), bound));
  return vluFileSample(std::move(file), std::move(head));
}

vluFileSample::vluFileSample(apRegularFile file, std::string head) : file_(std::move(file)), head_(std::move(head)) {
  text_ = head_;
  if (text_.starts_with("\xEF\xBB\xBF")) text_.remove_prefix(3);
  if (head_is_all()) text_ = text_.substr(0, text_.find_last_not_of('\0') + 1);
  if (text_.find('\0') != std::string_view::npos) text_ = {};
}

vluFileSample::vluFileSample(vluFileSample&& other) noexcept
    : vluFileSample(std::move(other.file_), std::move(other.head_)) {}

std::string_view vluFileSample::tail() const {
  if (head_is_all()) return head_;
  if (!tail_) {
    const std::uint64_t count = std::min<std::uint64_t>(size(), bound);
    tail_ = bytes_at(file_, size() - count, count);
  }
  return *tail_;
}
