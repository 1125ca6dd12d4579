#include "apFileName.h"

#include "apStringCompareInsensitive.h"

namespace {

std::size_t last_dot(const apString& name) {
  return name.view().rfind(L'.');
}

}  // namespace

bool apFileName::has_extension() const {
  return last_dot(name_) != apString::npos;
}

apString apFileName::extension() const {
  const std::size_t dot = last_dot(name_);
  return dot == apString::npos ? apString(L"") : name_.substr(dot + 1);
}

apString apFileName::without_extension() const {
  return name_.substr(0, last_dot(name_));
}

apFileName apFileName::add_extension(const apString& extension) const {
  const apString ending = apString(L".") + extension;
  const std::wstring_view name = name_.view();
  const bool there =
      name.size() >= ending.length() && ap_equal_folded(name.substr(name.size() - ending.length()), ending.view());
  return there ? *this : apFileName(name_ + ending);
}

apFileName apFileName::replace_extension(const apString& extension) const {
  return apFileName(without_extension() + L"." + extension);
}

bool operator==(const apFileName& left, const apFileName& right) {
  return ap_equal_folded(left.name_.view(), right.name_.view());
}
