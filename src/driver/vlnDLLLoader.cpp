#include "vlnDLLLoader.h"

#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"
#include "vlnFindFileByExtension.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDllsFactory.h"
#include "vlnTranslatorSearchPath.h"

vlnDLLLoader::vlnDLLLoader(utObserverPtr<const apILibraryLoaderOperations> libraries,
                           utObserverPtr<const apIFileOperations> files)
    : libraries_(libraries), files_(files) {}

vlnDLLLoader::~vlnDLLLoader() = default;

std::shared_ptr<vlnIAppDirMap> vlnDLLLoader::app_dir_map() {
  if (!app_dir_map_) app_dir_map_ = create_app_dir_map();
  return app_dir_map_;
}

void vlnDLLLoader::load_dlls(std::unique_ptr<vlnTranslatorDlls>& input, std::unique_ptr<vlnTranslatorDlls>& output) {
  const std::shared_ptr<vlnIAppDirMap> directories = app_dir_map();
  const apIStringEncoding* encoding = app_info_ ? app_info_->ut_encoding() : apStringEncodingChooser().ut_encoding();
  const apIStringCompare* compare =
      comparisons_.emplace_back(std::make_unique<apStringCompareInsensitive>(encoding)).get();

  apPathName cache_path;
  vlnSearchPath library_directories;
  if (directories) {
    const utString cache_file = directories->get_schema_dir(vlnSchemaTranslators).find_file("translators.lst");
    cache_path = apPathName(encoding->to_apString(cache_file), encoding);
    library_directories = directories->get_dir(vlnDIRECTORY_LIBRARY);
  }
  const vlnFindFileByExtension lister(files_.get(), compare);
  const vlnTranslatorSearchPath search_path(library_directories, &lister);
  const vlnSecureTranslatorInfoFactory descriptions(&libraries_, encoding, compare);
  const vlnTranslatorDllsFactory sets(encoding, compare, &descriptions);
  sets.create_translator_dlls(cache_path, search_path, "", app_info_.get(), input, output);
}
