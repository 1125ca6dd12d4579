#include "velUnits.h"

#include "velMessages.h"
#include "vln_shared_library_extension.h"

velUnits::velUnits(velInstallation& installation)
    : encoding_(installation.app_info().ut_encoding()),
      path_(installation.directories()->get_dir(vlnDIRECTORY_SERVICES)) {
  auto manager = std::make_unique<vlnServiceDllManager>(path_, &loader_, &installation.app_info());
  services_.set_dll_manager(manager, &installation.app_info());
}

const unitsService* velUnits::service() {
  vluBaseServicePtr found;
  return services_.service(vluServiceKey(units_service_key), found) ? found.as<unitsService>() : nullptr;
}

std::string velUnits::complaint(const std::string& consequence) const {
  const apFileName library(apString(units_service_key) + L"svc." + vln_shared_library_extension());
  const apPathName there = path_.search(library);
  if (!there.invalid()) {
    return vel_text(velMSG_SERVICE_UNUSABLE, {encoding_->to_utString(there.string()).str(), consequence});
  }
  return vel_text(velMSG_SERVICE_MISSING,
                  {encoding_->to_utString(library.string()).str(), path_.ut_path_string(encoding_).str(), consequence});
}
