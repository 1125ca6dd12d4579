#pragma once

#include "velConsole.h"
#include "velExitCode.h"

// `vel dirs`: where everything is.
struct velDirsRequest {
  bool json = false;
};

velExitCode vel_dirs(const velDirsRequest& request, velConsole& console);
