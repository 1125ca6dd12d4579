#pragma once

#include <map>
#include <memory>

#include "utObserverPtr.h"
#include "velabsAppInfo.h"
#include "vlnExport.h"
#include "vlnServiceDllManager.h"
#include "vluServiceInstance.h"
#include "vluServices.h"

// Services by key. One that nobody registered is looked for in a service library, which is loaded when its service is
// first asked for. Without a manager only registered services are known. A failure is told by `false` alone; nothing is
// kept of it but the library, and a later request tries again.
class VLN_API vlnServices : public vluServices {
 public:
  // True, and `out` set, when the service is known or could be loaded.
  bool service(const vluServiceKey& key, vluBaseServicePtr& out) override;

  // Forgets the service, destroys the object that made it and unloads its library, in this order. A later request loads
  // the library afresh.
  void remove_service(const vluServiceKey& key) override;
  ~vlnServices() override;

  // Takes the manager over. Everything that an earlier one loaded is removed first.
  void set_dll_manager(std::unique_ptr<vlnServiceDllManager>& manager, utObserverPtr<const velabsAppInfo> app_info);

 private:
  bool add_service_from_dll(const vluServiceKey& key);
  void drop_instances();

  utObserverPtr<const velabsAppInfo> app_info_;
  // The code of an instance lives in its library, so the manager outlives the instances.
  std::unique_ptr<vlnServiceDllManager> manager_;
  std::map<vluServiceKey, std::unique_ptr<vluServiceInstance>> instances_;
};
