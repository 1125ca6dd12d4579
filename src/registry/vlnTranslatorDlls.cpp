#include "vlnTranslatorDlls.h"

#include <utility>

#include "apSplitPath.h"
#include "apStringEncodingChooser.h"
#include "vlnTranslatorDllsIT.h"
#include "vluFileTypeFinder.h"

vlnTranslatorDlls::vlnTranslatorDlls(const apIStringEncoding* encoding)
    : libraries_(8), encoding_(encoding ? encoding : apStringEncodingChooser().ut_encoding()) {
  libraries_.max_load_factor(1.0F);
}

vlnTranslatorDlls::~vlnTranslatorDlls() = default;

void vlnTranslatorDlls::reserve(std::size_t count) {
  libraries_.reserve(count);
  formats_.reserve(count);
  filter_elements_.reserve(count);
  resource_file_names_.reserve(count);
}

void vlnTranslatorDlls::add_translator(std::unique_ptr<vlnSecureTranslatorInfo> info) {
  if (!info) return;
  const vlnTranslatorInfo& added = *descriptions_.append(std::move(info));
  libraries_.insert_or_assign(added.format_name(), added.file());
  if (!added.is_viewer()) formats_.push_back(added.format_name());
  resource_file_names_.push_back(added.resource_file_name());
  filter_elements_.push_back(added.filter());
}

const vlnTranslatorInfo* vlnTranslatorDlls::translator_for_file(const utString& path) const {
  const vluFileType type = vluFileTypeFinder::find_file_type(path);
  const apString dotted = apSplitPath(apPathName(encoding_->to_apString(path))).extension();
  const utString extension = encoding_->to_utString(dotted.begins_with(L".") ? dotted.substr(1) : dotted);
  vlnTranslatorDllsIT translators(*this);
  while (++translators) {
    if (translators()->is_compatible(type, extension)) return translators();
  }
  return nullptr;
}

const vlnTranslatorInfo* vlnTranslatorDlls::translator_for_format(const utString& name) const {
  const apString wanted = encoding_->to_apString(name);
  vlnTranslatorDllsIT translators(*this);
  while (++translators) {
    if (translators()->format_name().case_compare(wanted)) return translators();
  }
  return nullptr;
}

const vlnTranslatorInfo* vlnTranslatorDlls::default_output_format(const vlnTranslatorInfo* input) const {
  utString wanted = preferred_output_format_;
  if (!preferred_is_set_) wanted = input && input->format_name().case_compare(L"iges") ? "hpf" : "iges";
  const vlnTranslatorInfo* partner = translator_for_format(wanted);
  return partner ? partner : first_but_viewer();
}

const vlnTranslatorInfo* vlnTranslatorDlls::first_but_viewer() const {
  const vlnTranslatorInfo* last = nullptr;
  vlnTranslatorDllsIT translators(*this);
  while (++translators) {
    last = translators();
    if (!last->is_viewer()) break;
  }
  return last;
}

void vlnTranslatorDlls::set_preferred_output_format(const utString& name) {
  preferred_output_format_ = name;
  preferred_is_set_ = 1;
}
