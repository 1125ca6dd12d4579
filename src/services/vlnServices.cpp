#include "vlnServices.h"

#include <utility>

vlnServices::~vlnServices() {
  instances_.clear();
  manager_.reset();
}

void vlnServices::set_dll_manager(std::unique_ptr<vlnServiceDllManager>& manager,
                                  utObserverPtr<const velabsAppInfo> app_info) {
  drop_instances();
  manager_ = std::move(manager);
  app_info_ = app_info;
}

void vlnServices::drop_instances() {
  for (const auto& [key, instance] : instances_) vluServices::remove_service(key);
  instances_.clear();
}

bool vlnServices::service(const vluServiceKey& key, vluBaseServicePtr& out) {
  if (vluServices::service(key, out)) return true;
  return add_service_from_dll(key) && vluServices::service(key, out);
}

bool vlnServices::add_service_from_dll(const vluServiceKey& key) {
  if (!manager_) return false;
  const utObserverPtr<apDynamicLibrary> library = manager_->load_dll(key);
  if (!library) return false;
  apStatus status;
  const auto get_instance = reinterpret_cast<vluGetInstance>(library->proc_address("get_instance", status));
  if (!get_instance || !status.ok()) return false;

  // Exceptions of a service library are caught here.
  try {
    std::unique_ptr<vluServiceInstance> instance(get_instance(app_info_.get()));
    if (!instance) return false;
    vluBaseServicePtr holder;
    instance->service(holder);
    if (!holder) return false;
    add_service(key, holder);
    instances_[key] = std::move(instance);
    return true;
  } catch (...) {
    return false;
  }
}

void vlnServices::remove_service(const vluServiceKey& key) {
  vluServices::remove_service(key);
  instances_.erase(key);
  if (manager_) manager_->unload_dll(key);
}
