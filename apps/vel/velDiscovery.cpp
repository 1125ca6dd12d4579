#include "velDiscovery.h"

#include <unordered_set>

#include "apFrustrumChooser.h"
#include "velMessages.h"
#include "vlnTranslatorCacheReader.h"
#include "vlnTranslatorDllsIT.h"
#include "vln_shared_library_extension.h"

velDiscovery::velDiscovery(velInstallation& installation)
    : installation_(installation),
      encoding_(installation.app_info().ut_encoding()),
      compare_(encoding_),
      lister_(apFrustrumChooser().file_operations(), &compare_),
      libraries_(apILibraryLoaderOperations::system()),
      search_path_(installation.directories()->get_dir(vlnDIRECTORY_LIBRARY), &lister_),
      descriptions_(&libraries_, encoding_, &compare_),
      sets_(encoding_, &compare_, &descriptions_) {}

std::string velDiscovery::library_directory() const {
  return search_path_.ut_path_string(encoding_).str();
}

velDiscovery::Sets velDiscovery::empty_sets() const {
  return {sets_.empty_dlls(), sets_.empty_dlls()};
}

velDiscovery::Sets velDiscovery::describe_all() const {
  Sets sets;
  // The load status is not needed: `failures` finds the failed libraries one by one.
  sets_.create_translator_dlls(apPathName(), search_path_, "", &installation_.app_info(), sets.inputs, sets.outputs);
  return sets;
}

std::vector<velDiscovery::Failure> velDiscovery::failures(const vlnTranslatorDlls& inputs,
                                                          const vlnTranslatorDlls& outputs) const {
  std::unordered_set<apString> described;
  for (const vlnTranslatorDlls* set : {&inputs, &outputs}) {
    vlnTranslatorDllsIT translators(*set);
    while (++translators) described.insert(translators()->file().string());
  }
  std::vector<Failure> failures;
  bool directory_missing = false;
  for (const apPathName& library : search_path_.find_by_extension(vln_shared_library_extension(), directory_missing)) {
    if (described.contains(library.string())) continue;
    vlnTranslatorLoadStatus status(vlnLOAD_OK);
    if (descriptions_.make_info_from_dll(library, status)) continue;
    failures.push_back({encoding_->to_utString(library.string()).str(), reason(library, status)});
  }
  return failures;
}

std::string velDiscovery::failure_to_load(const vlnTranslatorInfo& info) const {
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  if (info.load_now(status)) return "";
  vlnTranslatorLoadStatus again(vlnLOAD_OK);
  descriptions_.make_info_from_dll(info.file(), again);
  return reason(info.file(), status);
}

std::string velDiscovery::reason(const apPathName& library, const vlnTranslatorLoadStatus& status) const {
  if (const std::string failure = libraries_.failure(library).str(); !failure.empty()) {
    // Callers name the library before the reason.
    const std::string prefix = encoding_->to_utString(library.string()).str() + ": ";
    return failure.starts_with(prefix) ? failure.substr(prefix.size()) : failure;
  }
  if (status.types().contains(vlnLOAD_NO_WRAPPER)) return vel_text(velMSG_WHY_NO_ENTRY);
  if (status.types().contains(vlnLOAD_NO_LIBRARY_OBJECT)) return vel_text(velMSG_WHY_NO_OBJECT);
  if (status.types().contains(vlnLOAD_ENCODING_FAILED)) return vel_text(velMSG_WHY_NO_CONVERSION);
  // The library could be opened, so describing it failed.
  return vel_text(velMSG_WHY_NO_DESCRIPTION);
}

std::vector<velDiscovery::Record> velDiscovery::read_cache(const std::string& cache_file, bool& intact) const {
  const Sets sets = empty_sets();
  int any_record = 0;
  const vlnTranslatorCacheReader reader(*sets.inputs, *sets.outputs, apPathName(encoding_->to_apString(cache_file)),
                                        search_path_, &descriptions_, encoding_, &compare_, &installation_.app_info(),
                                        any_record);
  intact = reader.intact() && reader.read_to_end();
  std::vector<Record> records;
  for (const std::string_view content : reader.records()) {
    Record& record = records.emplace_back();
    utString rest(content);
    if (utString name; vlnTranslatorCacheReader::extract_string(rest, name)) record.library = name.str();
    reader.make_info_from_string(utString(content), record.info);
  }
  return records;
}
