#pragma once

#include "velConsole.h"
#include "velExitCode.h"

// `vel dirs`: prints the directories of the installation and the user.
struct velDirsRequest {
  bool json = false;
};

velExitCode vel_dirs(const velDirsRequest& request, velConsole& console);
