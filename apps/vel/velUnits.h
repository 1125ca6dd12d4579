#pragma once

#include <string>

#include "apDynamicLibraryLoader.h"
#include "unitsService.h"
#include "velInstallation.h"
#include "vlnServices.h"

// The installation's service for units of length. Its library is looked for when it is first asked for. The
// installation must outlive it.
class velUnits {
 public:
  explicit velUnits(velInstallation& installation);
  velUnits(const velUnits&) = delete;
  velUnits& operator=(const velUnits&) = delete;

  // Null when there is none.
  const unitsService* service();

  // Why there is none, with `consequence` behind it: which library, and where it was looked for.
  std::string complaint(const std::string& consequence) const;

 private:
  const apIStringEncoding* encoding_;
  vlnSearchPath path_;
  apDynamicLibraryLoader loader_;
  vlnServices services_;
};
