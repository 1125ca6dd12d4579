#include "apFileFinderEx.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>

#include "apSystemPath.h"

namespace {

struct CloseDirectory {
  void operator()(DIR* directory) const { closedir(directory); }
};

// Calls fstatat only if the listing does not give the type.
bool is_directory_entry(DIR* directory, const dirent& entry) {
  if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_DIR;
  struct stat status;
  return fstatat(dirfd(directory), entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

std::size_t common_length(std::string_view a, std::string_view b) {
  return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

// The first eight bytes as an integer with the same sort order.
std::uint64_t leading_bytes(std::string_view text) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i) {
    number = number << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0);
  }
  return number;
}

}  // namespace

apFileFinderEx::apFileFinderEx(const apPath& path) : encoding_(path.directory().encoding()) {
  const std::string name = ap_system_path(path.directory());
  std::unique_ptr<DIR, CloseDirectory> directory(name.empty() ? nullptr : opendir(name.c_str()));
  if (!directory) {
    invalid_ = true;
    return;
  }
  directory_ = apPathName::adjoin(path.directory(), apFileName(L"-")).string().text();
  directory_.pop_back();
  while (const dirent* entry = readdir(directory.get())) {
    const std::string_view entry_name = entry->d_name;
    if (entry_name == "." || entry_name == "..") continue;
    entries_.push_back({names_.size(), entry_name.size(), 0, is_directory_entry(directory.get(), *entry)});
    names_ += entry_name;
  }
  sort();
}

void apFileFinderEx::sort() {
  if (entries_.empty()) return;
  // The names of a directory often have a common prefix. The bytes after it, as one integer, decide nearly every
  // comparison.
  const std::string_view first = name_of(entries_.front());
  std::size_t shared = first.size();
  for (const Entry& entry : entries_) shared = common_length(first.substr(0, shared), name_of(entry));
  for (Entry& entry : entries_) entry.key = leading_bytes(name_of(entry).substr(shared));
  std::sort(entries_.begin(), entries_.end(), [this](const Entry& a, const Entry& b) {
    return a.key != b.key ? a.key < b.key : name_of(a) < name_of(b);
  });
}

int apFileFinderEx::operator++() {
  if (position_ > entries_.size()) return 0;
  ++position_;
  return position_ <= entries_.size() ? 1 : 0;
}

apPathName apFileFinderEx::path() const {
  if (position_ == 0 || position_ > entries_.size()) return {};
  const std::string_view name = name_of(entries_[position_ - 1]);
  std::wstring path;
  path.reserve(directory_.size() + name.size());
  path += directory_;
  ap_decode_name(name, encoding_, path);
  return apPathName(std::move(path), encoding_);
}

apFileName apFileFinderEx::file_name() const {
  if (position_ == 0 || position_ > entries_.size()) return {};
  std::wstring name;
  ap_decode_name(name_of(entries_[position_ - 1]), encoding_, name);
  return apFileName(std::move(name));
}

bool apFileFinderEx::is_directory() const {
  return position_ > 0 && position_ <= entries_.size() && entries_[position_ - 1].directory;
}
