#include "vlnTranslatorDllsFactory.h"

#include <utility>
#include <vector>

#include "vlnLibraryIndex.h"
#include "vlnTranslatorCacheReader.h"

std::unique_ptr<vlnTranslatorDlls> vlnTranslatorDllsFactory::empty_dlls() const {
  return std::unique_ptr<vlnTranslatorDlls>(new vlnTranslatorDlls(encoding_));
}

vlnTranslatorLoadStatus vlnTranslatorDllsFactory::create_translator_dlls(
    const apPathName& cache_file, const vlnTranslatorSearchPath& search_path, const utString& preferred_output_format,
    const velabsAppInfo* app_info, std::unique_ptr<vlnTranslatorDlls>& inputs,
    std::unique_ptr<vlnTranslatorDlls>& outputs) const {
  inputs = empty_dlls();
  outputs = empty_dlls();
  if (search_path.empty()) return vlnTranslatorLoadStatus(vlnLOAD_SEARCH_PATH_EMPTY);

  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  const vlnLibraryIndex libraries = vlnLibraryIndex::of_libraries(search_path);
  for (vlnTranslatorDlls* set : {inputs.get(), outputs.get()}) set->reserve(libraries.files().size());
  if (!cache_file.invalid()) {
    int any_record = 0;
    const vlnTranslatorCacheReader reader(*inputs, *outputs, cache_file, search_path, descriptions_, encoding_,
                                          compare_, app_info, any_record);
    if (!reader.intact()) status.merge_status(vlnTranslatorLoadStatus(vlnLOAD_CACHE_UNREADABLE));
  }
  get_translators_not_in_cache(libraries, *inputs, *outputs, status);
  if (!preferred_output_format.empty()) outputs->set_preferred_output_format(preferred_output_format);
  return status;
}

void vlnTranslatorDllsFactory::get_translators_not_in_cache(const vlnLibraryIndex& libraries, vlnTranslatorDlls& inputs,
                                                            vlnTranslatorDlls& outputs,
                                                            vlnTranslatorLoadStatus& status) const {
  std::vector<bool> known(libraries.files().size());
  for (const vlnTranslatorDlls* set : {&inputs, &outputs}) {
    for (const auto& [format, library] : set->libraries_) {
      libraries.for_each_named(library.last_component(), [&](std::size_t file) { known[file] = true; });
    }
  }
  if (libraries.directory_missing()) status.merge_status(vlnTranslatorLoadStatus(vlnLOAD_DIRECTORY_MISSING));

  if (!descriptions_) return;
  for (std::size_t i = 0; i < known.size(); ++i) {
    if (known[i]) continue;
    vlnTranslatorLoadStatus described(vlnLOAD_OK);
    auto info = descriptions_->make_info_from_dll(libraries.files()[i], described);
    status.merge_status(described);
    if (!info) continue;
    vlnTranslatorDlls& set = info->type() == vlnTRANSLATOR_INPUT ? inputs : outputs;
    set.add_translator(std::move(info));
  }
}
