#include "vlnServiceDllManager.h"

#include <utility>

#include "apStringEncodingChooser.h"
#include "vln_shared_library_extension.h"

vlnServiceDllManager::vlnServiceDllManager(const vlnSearchPath& path, utObserverPtr<apDynamicLibraryLoader> loader,
                                           utObserverPtr<velabsAppInfo> app_info)
    : app_info_(app_info), loader_(loader), path_(path) {}

vlnServiceDllManager::~vlnServiceDllManager() = default;

utObserverPtr<apDynamicLibrary> vlnServiceDllManager::load_dll(const vluServiceKey& key) {
  if (const auto loaded = libraries_.find(key); loaded != libraries_.end()) return loaded->second.get();
  const apPathName path = path_.search(dll_name_from_key(key));
  if (path.invalid() || !loader_) return nullptr;
  apStatus status;
  auto library = loader_->load(path, status);
  if (!library || !status.ok()) return nullptr;
  return (libraries_[key] = std::move(library)).get();
}

void vlnServiceDllManager::unload_dll(const vluServiceKey& key) {
  libraries_.erase(key);
}

apFileName vlnServiceDllManager::dll_name_from_key(const vluServiceKey& key) const {
  const apIStringEncoding* encoding = app_info_ ? app_info_->ut_encoding() : apStringEncodingChooser().ut_encoding();
  const apString name = encoding->to_apString(key.get_name());
  // A name that cannot be converted is null and would give "svc.dll".
  return name.invalid() ? apFileName() : apFileName(name + L"svc." + vln_shared_library_extension());
}
