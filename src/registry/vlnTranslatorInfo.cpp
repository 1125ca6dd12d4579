#include "vlnTranslatorInfo.h"

#include <algorithm>
#include <utility>

#include "apStringCompareInsensitive.h"

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

utString vlnTranslatorInfo::file_ut() const {
  return encoding_->to_utString(file_.string());
}

apFileName vlnTranslatorInfo::file_name() const {
  return file_.basename();
}

utString vlnTranslatorInfo::file_name_ut() const {
  return encoding_->to_utString(file_name().string());
}

apString vlnTranslatorInfo::tag() const {
  const apString name = file_name().without_extension();
  return name.begins_with(L"lib") ? name.substr(3) : name;
}

vlnUntranslatedFilterElement vlnTranslatorInfo::filter() const {
  const velabsTranslatorCategorycoPrf category = category_ ? category_ : velabsTranslatorCategory::find("");
  return {filter_, encoding_->to_utString(tag()), *category};
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
  return apStringCompareInsensitive(encoding_).equal(format_name_.string(), L"Viewer") ? 1 : 0;
}

apFileName vlnTranslatorInfo::resource_file_name() const {
  std::wstring name = format_name_.string().text();
  std::erase_if(name, [](wchar_t c) { return c == L'/' || c == L' '; });
  return apFileName(name + L".rsc");
}
