#include "vlnSecureTranslatorInfo.h"

#include "coSet.h"
#include "velabsAppInfo.h"
#include "velabsOfStream.h"
#include "vlnExtensionIT.h"
#include "vlnViewerName.h"
#include "vluFileHelpers.h"

namespace {

// The arguments that a library needs to create its translator object for a description only: a stream to a temporary
// file and placeholder application information. The file is always removed afterwards.
class ThrowAwayEnvironment {
 public:
  ~ThrowAwayEnvironment() {
    stream_.reset();
    if (!name_.empty()) vlu_remove_file(name_);
  }

  velabsOfStream* stream() { return stream_.get(); }
  const velabsAppInfo* app_info() const { return &app_info_; }

 private:
  utString name_ = vlu_make_temp_file_name("");
  std::unique_ptr<velabsOfStream> stream_ = std::make_unique<velabsOfStream>(name_);
  velabsAppInfo app_info_{"x", "x", "x", "x", ""};
};

}  // namespace

vlnSecureTranslatorInfo::vlnSecureTranslatorInfo(const v2vTranslatorLoader* loader, const apIStringEncoding* encoding,
                                                 const apIStringCompare* compare)
    : vlnTranslatorInfo(encoding), loader_(loader), compare_(compare) {}

vlnSecureTranslatorInfo::~vlnSecureTranslatorInfo() = default;

const vlnTranslatorInfo* vlnSecureTranslatorInfo::load_now(vlnTranslatorLoadStatus& status) const {
  if (!needs_loading_) return this;
  // Reading a description again from its library does not change its meaning; descriptions are never const objects.
  auto& self = const_cast<vlnSecureTranslatorInfo&>(*this);
  const vlnTranslatorLoadStatus loaded = self.update_info_from_dll(file());
  status.merge_status(loaded);
  return loaded.ok() ? this : nullptr;
}

vlnTranslatorLoadStatus vlnSecureTranslatorInfo::update_info_from_dll(const apPathName& library) {
  // `library` may refer to this description's own path, which is changed below.
  const apPathName path = library;
  const velabsTranslatorCategorycoPrf earlier_category = translator_category();
  vlnTranslatorLoadStatus status(path);
  try {
    status = ask_library(path);
  } catch (...) {
    // `status` already reports the failure.
  }
  // A category may be an object of the library. Its code must then stay loaded.
  if (!status.ok() && library_ && translator_category() == earlier_category) library_->refuse();
  return status;
}

vlnTranslatorLoadStatus vlnSecureTranslatorInfo::ask_library(const apPathName& library) {
  ThrowAwayEnvironment environment;
  library_ = loader_ ? loader_->load_library_path(library) : nullptr;

  std::unique_ptr<velabsLibBase> object;
  if (library_ && library_->is_output()) {
    set_type(vlnTRANSLATOR_OUTPUT);
    const velabsWriteWrapper make = library_->write_wrapper();
    if (!make) return vlnTranslatorLoadStatus(vlnLOAD_NO_WRAPPER);
    object.reset(make(environment.stream(), environment.app_info()));
  } else if (library_ && library_->is_input()) {
    set_type(vlnTRANSLATOR_INPUT);
    const velabsReadWrapper make = library_->read_wrapper();
    if (!make) return vlnTranslatorLoadStatus(vlnLOAD_NO_WRAPPER);
    object.reset(make(environment.app_info()));
  } else {
    return vlnTranslatorLoadStatus(library);
  }
  if (!object) return vlnTranslatorLoadStatus(vlnLOAD_NO_LIBRARY_OBJECT);
  return take_description(library, *object);
}

vlnTranslatorLoadStatus vlnSecureTranslatorInfo::take_description(const apPathName& library,
                                                                  const velabsLibBase& object) {
  set_file(library);

  const char* reported_name = object.format_name();
  apStatus conversion;
  const apString name =
      encoding()->to_apString(utString(vln_viewer_name(reported_name ? reported_name : "")), conversion);
  if (!conversion.ok()) return vlnTranslatorLoadStatus(vlnLOAD_ENCODING_FAILED);
  set_format_name(vlnFormatName(name, encoding(), compare_));

  set_further(object.further_text(), object.further_number());
  set_translator_category(object.translator_category());

  clear_file_types();
  clear_extensions();
  const char* filter = object.filter();
  set_filter(filter ? filter : "");
  if (filter) {
    intcoSet types(4, 50);
    object.file_types(types);
    for (int type : types) add_file_type(static_cast<vluFileType>(type));
    const vlnTranslatorLoadStatus extensions = take_extensions(object);
    if (!extensions.ok()) return extensions;
  }

  needs_loading_ = 0;
  set_from_cache(0);
  return vlnTranslatorLoadStatus(vlnLOAD_OK);
}

vlnTranslatorLoadStatus vlnSecureTranslatorInfo::take_extensions(const velabsLibBase& object) {
  utStringcoSet reported(4, 50);
  object.extensions(reported);
  vlnExtensionIT extensions(&reported);
  while (++extensions) {
    apStatus conversion;
    const apString extension = encoding()->to_apString(extensions(), conversion);
    if (!conversion.ok()) return vlnTranslatorLoadStatus(vlnLOAD_ENCODING_FAILED);
    add_extension(extension);
  }
  return vlnTranslatorLoadStatus(vlnLOAD_OK);
}
