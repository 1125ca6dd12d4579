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

// Gives an application its two translator sets. It owns the directory map and finds the cache file and the libraries
// through it; the application says how the map is made and what is left to do after loading. What is borrowed (library
// and file operations, application information) must outlive it, and it must outlive the sets' uses.
class VLN_API vlnDLLLoader {
 public:
  // Replaces both sets by what the cache and the library directory give. May be called again, also with other sets; all
  // of them may be used as long as the loader lives. What failed is not reported. Without application information
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

  // Made at the first call, shared from then on.
  std::shared_ptr<vlnIAppDirMap> app_dir_map();

 protected:
  // A new map, ready for `get_schema_dir` and `get_dir`.
  virtual std::shared_ptr<vlnIAppDirMap> create_app_dir_map() = 0;

 private:
  v2vTranslatorLoader libraries_;
  utObserverPtr<const apIFileOperations> files_;
  utObserverPtr<velabsAppInfo> app_info_;
  // One for each loading; the descriptions hold it by pointer.
  std::vector<std::unique_ptr<apIStringCompare>> comparisons_;
  std::shared_ptr<vlnIAppDirMap> app_dir_map_;
};
