#include "apPathName.h"

#include <algorithm>

namespace {

constexpr std::wstring_view separators = L"/\\";

apString join(std::wstring_view left, std::wstring_view right) {
  const std::size_t left_end = left.find_last_not_of(separators);
  left = left.substr(0, left_end == left.npos ? 0 : left_end + 1);
  right.remove_prefix(std::min(right.find_first_not_of(separators), right.size()));
  std::wstring path(left);
  path += L'/';
  return path += right;
}

}  // namespace

apPathName apPathName::dirname() const {
  const std::size_t separator = path_.view().find_last_of(separators);
  if (separator == apString::npos) return {};
  return apPathName(path_.substr(0, separator == 0 ? 1 : separator));
}

apFileName apPathName::basename() const {
  const std::size_t separator = path_.view().find_last_of(separators);
  return apFileName(path_.substr(separator == apString::npos ? 0 : separator + 1));
}

apPathName apPathName::combine(const apPathName& relative) const {
  if (relative.invalid()) return *this;
  if (invalid()) return relative;
  return apPathName(join(path_.view(), relative.path_.view()));
}

apPathName apPathName::adjoin(const apPathName& directory, const apFileName& name) {
  return directory.combine(apPathName(name.string()));
}
