#pragma once

#include "vlnAppDirMap.h"

// The program's directory map. It also finds the files of the installation when the application data directory is not
// usable.
class velAppDirMap : public vlnAppDirMap {
 public:
  using vlnAppDirMap::vlnAppDirMap;

  // To be called after an `initialise` that found no application data directory.
  void use_installation_only() { setup_schemas(); }
};
