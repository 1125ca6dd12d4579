#pragma once

#include "vlnAppDirMap.h"

// The program's directory map. It serves also where no application data directory can be had: what the installation
// carries is then found all the same.
class velAppDirMap : public vlnAppDirMap {
 public:
  using vlnAppDirMap::vlnAppDirMap;

  // After an `initialise` that found no application data directory.
  void use_installation_only() { setup_schemas(); }
};
