#pragma once

#include <map>
#include <memory>

#include "utObserverPtr.h"
#include "velabsAppInfo.h"
#include "vlnExport.h"
#include "vlnServiceDllManager.h"
#include "vluServiceInstance.h"
#include "vluServices.h"

// Services by key. A service that is not registered is loaded from a service library at its first request. Without a
// manager only registered services are found. A failure is reported only by `false`. After a failure only the library
// is kept, and a later request tries again.
class VLN_API vlnServices : public vluServices {
 public:
  // True, and `out` set, when the service is known or could be loaded.
  bool service(const vluServiceKey& key, vluBaseServicePtr& out) override;

  // Removes the service, then destroys the object that made it, then unloads its library. A later request loads the
  // library again.
  void remove_service(const vluServiceKey& key) override;
  ~vlnServices() override;

  // Takes ownership of the manager. Everything that an earlier manager loaded is removed first.
  void set_dll_manager(std::unique_ptr<vlnServiceDllManager>& manager, utObserverPtr<const velabsAppInfo> app_info);

 private:
  bool add_service_from_dll(const vluServiceKey& key);
  void drop_instances();

  utObserverPtr<const velabsAppInfo> app_info_;
  // The code of an instance is in its library, so the manager must outlive the instances.
  std::unique_ptr<vlnServiceDllManager> manager_;
  std::map<vluServiceKey, std::unique_ptr<vluServiceInstance>> instances_;
};
