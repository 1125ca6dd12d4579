#pragma once

#include <string>

#include "velConsole.h"
#include "velExitCode.h"

// `vel options`: prints the options of a format, the values they accept and their defaults.
struct velOptionsRequest {
  std::string format;
  bool json = false;
};

velExitCode vel_options(const velOptionsRequest& request, velConsole& console);
