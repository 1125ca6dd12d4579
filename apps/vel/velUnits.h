#pragma once

#include <string>

#include "apDynamicLibraryLoader.h"
#include "unitsService.h"
#include "velInstallation.h"
#include "vlnServices.h"

// Gives access to the installation's service for units of length. Its library is loaded by the first call of `service`.
// The installation must outlive it.
class velUnits {
 public:
  explicit velUnits(velInstallation& installation);
  velUnits(const velUnits&) = delete;
  velUnits& operator=(const velUnits&) = delete;

  // Null when it cannot be loaded.
  const unitsService* service();

  // The message about a missing service: which library, where it was searched, then `consequence`.
  std::string complaint(const std::string& consequence) const;

 private:
  const apIStringEncoding* encoding_;
  vlnSearchPath path_;
  apDynamicLibraryLoader loader_;
  vlnServices services_;
};
