#pragma once

#include <map>
#include <memory>

#include "apDynamicLibrary.h"
#include "apDynamicLibraryLoader.h"
#include "apFileName.h"
#include "utObserverPtr.h"
#include "velabsAppInfo.h"
#include "vlnExport.h"
#include "vlnSearchPath.h"
#include "vluServiceKey.h"

// Finds, loads, keeps and unloads service libraries. Each key has one library named after it ("unitssvc.dll" for
// "units"), which is found on the manager's search path. The loader and the application information are not owned.
class VLN_API vlnServiceDllManager {
 public:
  vlnServiceDllManager(const vlnSearchPath& path, utObserverPtr<apDynamicLibraryLoader> loader,
                       utObserverPtr<velabsAppInfo> app_info);
  ~vlnServiceDllManager();

  // The key's library, loaded at the first call and kept. Null if it is not found or cannot be loaded; a later call
  // tries again.
  utObserverPtr<apDynamicLibrary> load_dll(const vluServiceKey& key);

  // Unloads the key's library, if it is loaded.
  void unload_dll(const vluServiceKey& key);

 private:
  apFileName dll_name_from_key(const vluServiceKey& key) const;

  utObserverPtr<velabsAppInfo> app_info_;
  std::map<vluServiceKey, std::unique_ptr<apDynamicLibrary>> libraries_;
  utObserverPtr<apDynamicLibraryLoader> loader_;
  vlnSearchPath path_;
};
