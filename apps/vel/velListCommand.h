#pragma once

#include "velConsole.h"
#include "velExitCode.h"

// `vel list`: prints every translator, then the libraries that failed and why.
struct velListRequest {
  bool json = false;
};

velExitCode vel_list(const velListRequest& request, velConsole& console);
