#include "vlnDLLLoader.h"

#include "apStringCompareInsensitive.h"
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
  const utString cache_file = directories->get_schema_dir(vlnSchemaTranslators).find_file("translators.lst");

  const apIStringEncoding* encoding = app_info_->ut_encoding();
  const apPathName cache_path(encoding->to_apString(cache_file));
  auto compare = std::make_unique<apStringCompareInsensitive>(encoding);

  const vlnFindFileByExtension lister(files_.get(), compare.get());
  const vlnTranslatorSearchPath search_path(directories->get_dir(vlnDIRECTORY_LIBRARY), &lister);
  const vlnSecureTranslatorInfoFactory descriptions(&libraries_, encoding, compare.get());
  const vlnTranslatorDllsFactory sets(encoding, compare.get(), &descriptions);
  sets.create_translator_dlls(cache_path, search_path, "", app_info_.get(), input, output);

  // The earlier sets are gone by now, so nobody holds the earlier comparison.
  compare_ = std::move(compare);
}
