#include "apPathName.h"

namespace {

bool is_separator(wchar_t character) {
  return character == L'/' || character == L'\\';
}

// The offset of the last component: after the last separator, or 0.
std::size_t start_of_last_component(std::wstring_view path) {
  std::size_t start = path.size();
  while (start > 0 && !is_separator(path[start - 1])) --start;
  return start;
}

apString join(std::wstring_view left, std::wstring_view right) {
  while (!left.empty() && is_separator(left.back())) left.remove_suffix(1);
  while (!right.empty() && is_separator(right.front())) right.remove_prefix(1);
  std::wstring path;
  path.reserve(left.size() + 1 + right.size());
  path += left;
  path += L'/';
  path += right;
  return path;
}

}  // namespace

const apString& apPathName::no_path() {
  static const apString none;
  return none;
}

apPathName apPathName::dirname() const {
  const std::size_t start = start_of_last_component(string().view());
  if (start == 0) return {};
  return apPathName(string().substr(0, start == 1 ? 1 : start - 1), encoding());
}

std::wstring_view apPathName::last_component() const {
  return string().view().substr(start_of_last_component(string().view()));
}

apFileName apPathName::basename() const {
  return apFileName(apString(std::wstring(last_component())));
}

apPathName apPathName::combine(const apPathName& relative) const {
  if (relative.invalid()) return *this;
  if (invalid()) return relative;
  return apPathName(join(string().view(), relative.string().view()), encoding());
}

apPathName apPathName::adjoin(const apPathName& directory, const apFileName& name) {
  if (name.empty()) return directory;
  if (directory.invalid()) return apPathName(name.string());
  return apPathName(join(directory.string().view(), name.string().view()), directory.encoding());
}
