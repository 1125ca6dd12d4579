#pragma once

#include <string>

#include "velConsole.h"
#include "velExitCode.h"

// `vel info`: what a file holds.
struct velInfoRequest {
  std::string file;
  bool json = false;
};

velExitCode vel_info(const velInfoRequest& request, velConsole& console);
