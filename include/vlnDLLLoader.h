#pragma once

#include <memory>
#include <vector>

#include "apIFileOperations.h"
#include "apILibraryLoaderOperations.h"
#include "apIStringCompare.h"
#include "utObserverPtr.h"
#include "v2vTranslatorLoader.h"
#include "velabsAppInfo.h"
#include "vlnExport.h"
#include "vlnIAppDirMap.h"
#include "vlnTranslatorDlls.h"

// Creates an application's two translator sets. It owns the directory map and uses it to find the cache file and the
// libraries. The application creates the map and defines the step after loading. The library operations, file
// operations and application information are not owned and must outlive the loader. The loader must outlive all use of
// the sets.
class VLN_API vlnDLLLoader {
 public:
  // Replaces both sets by the translators of the cache and the library directory. May be called again, also with other
  // sets; all of them are valid as long as the loader lives. Failures are not reported. Without application information
  // texts are UTF-8; without a directory map both sets are empty.
  virtual void load_dlls(std::unique_ptr<vlnTranslatorDlls>& input, std::unique_ptr<vlnTranslatorDlls>& output);

  // The application's step after loading; the driver calls it last.
  virtual void finish_loading() = 0;
  virtual ~vlnDLLLoader();

  vlnDLLLoader(utObserverPtr<const apILibraryLoaderOperations> libraries, utObserverPtr<const apIFileOperations> files);
  vlnDLLLoader(const vlnDLLLoader&) = delete;
  vlnDLLLoader& operator=(const vlnDLLLoader&) = delete;

  void set_app_info(utObserverPtr<velabsAppInfo> app_info) { app_info_ = app_info; }
  utObserverPtr<velabsAppInfo> app_info() const { return app_info_; }

  // Created at the first call and shared afterwards.
  std::shared_ptr<vlnIAppDirMap> app_dir_map();

 protected:
  // A new map, ready for `get_schema_dir` and `get_dir`.
  virtual std::shared_ptr<vlnIAppDirMap> create_app_dir_map() = 0;

 private:
  v2vTranslatorLoader libraries_;
  utObserverPtr<const apIFileOperations> files_;
  utObserverPtr<velabsAppInfo> app_info_;
  // One for each call of `load_dlls`; the descriptions keep a pointer to it.
  std::vector<std::unique_ptr<apIStringCompare>> comparisons_;
  std::shared_ptr<vlnIAppDirMap> app_dir_map_;
};
