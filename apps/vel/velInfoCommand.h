#pragma once

#include <optional>
#include <string>

#include "velConsole.h"
#include "velExitCode.h"
#include "velLengthUnit.h"

// `vel info`: what a file holds.
struct velInfoRequest {
  std::string file;
  std::string from;                   // its format; empty: as its content says
  std::optional<velLengthUnit> unit;  // in which lengths are shown; without one in the file's
  bool json = false;
};

velExitCode vel_info(const velInfoRequest& request, velConsole& console);
