#include "vlnTranslatorInfo.h"

#include <algorithm>
#include <utility>

#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"

vlnTranslatorInfo::vlnTranslatorInfo(const apIStringEncoding* encoding)
    : encoding_(encoding ? encoding : apStringEncodingChooser().ut_encoding()) {}

vlnTranslatorInfo::~vlnTranslatorInfo() = default;

void vlnTranslatorInfo::set_translator_category(const velabsTranslatorCategorycoPrf& category) {
  category_ = category ? category : velabsTranslatorCategory::find("");
}

void vlnTranslatorInfo::set_further(const utString& text, int number) {
  further_text_ = text;
  further_number_ = number;
}

utString vlnTranslatorInfo::remove_forward_slashes(const utString& text) {
  std::string rest = text.str();
  std::erase(rest, '/');
  return rest;
}

void vlnTranslatorInfo::add_extension(apString extension) {
  // Most translators have one or two extensions.
  if (extensions_.empty()) extensions_.reserve(2);
  extensions_.push_back(std::move(extension));
}

utString vlnTranslatorInfo::file_ut() const {
  return encoding_->to_utString(file_.string());
}

apFileName vlnTranslatorInfo::file_name() const {
  return file_.basename();
}

utString vlnTranslatorInfo::file_name_ut() const {
  return encoding_->to_utString(file_name().string());
}

namespace {

std::wstring_view tag_of(const apPathName& library) {
  std::wstring_view name = library.last_component();
  name = name.substr(0, name.rfind(L'.'));
  if (name.starts_with(L"lib")) name.remove_prefix(3);
  return name;
}

}  // namespace

apString vlnTranslatorInfo::tag() const {
  return std::wstring(tag_of(file_));
}

vlnUntranslatedFilterElement vlnTranslatorInfo::filter() const {
  apStatus ignored;
  std::string short_name;
  encoding_->encode(tag_of(file_), short_name, ignored);
  if (!category_) return {filter_, std::move(short_name), *velabsTranslatorCategory::find("")};
  return {filter_, std::move(short_name), *category_};
}

apPathName vlnTranslatorInfo::change_extension(const apPathName& path) const {
  if (extensions_.empty()) return path;
  return apPathName::adjoin(path.dirname(), path.basename().replace_extension(extensions_.front()));
}

int vlnTranslatorInfo::is_compatible(vluFileType file_type, const utString& extension) const {
  if (type_ == vlnTRANSLATOR_INPUT) {
    return std::find(file_types_.begin(), file_types_.end(), static_cast<int>(file_type)) != file_types_.end() ? 1 : 0;
  }
  const apString wanted = encoding_->to_apString(extension);
  const apStringCompareInsensitive compare(encoding_);
  const bool found = std::any_of(extensions_.begin(), extensions_.end(),
                                 [&](const apString& own) { return compare.equal(own, wanted); });
  return found ? 1 : 0;
}

int vlnTranslatorInfo::is_viewer() const {
  return ap_equal_folded(format_name_.string().view(), L"Viewer") ? 1 : 0;
}

apFileName vlnTranslatorInfo::resource_file_name() const {
  constexpr std::wstring_view extension = L".rsc";
  std::wstring name;
  name.reserve(format_name_.string().length() + extension.size());
  for (wchar_t c : format_name_.string().view()) {
    if (c != L'/' && c != L' ') name += c;
  }
  name += extension;
  return apFileName(std::move(name));
}
