#pragma once

#include <string>

#include "velConsole.h"
#include "velExitCode.h"

// `vel options`: the keys of a format, what they take and what holds without them.
struct velOptionsRequest {
  std::string format;
  bool json = false;
};

velExitCode vel_options(const velOptionsRequest& request, velConsole& console);
