#pragma once

#include "velConsole.h"
#include "velExitCode.h"

// `vel list`: every translator, then what failed, and why.
struct velListRequest {
  bool json = false;
};

velExitCode vel_list(const velListRequest& request, velConsole& console);
