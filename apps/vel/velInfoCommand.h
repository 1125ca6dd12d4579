#pragma once

#include <optional>
#include <string>

#include "velConsole.h"
#include "velExitCode.h"
#include "velLengthUnit.h"

// `vel info`: prints the contents of a file.
struct velInfoRequest {
  std::string file;
  std::string from;                   // its format; empty: chosen by the content
  std::optional<velLengthUnit> unit;  // of the lengths shown; the unit of the file by default
  bool json = false;
};

velExitCode vel_info(const velInfoRequest& request, velConsole& console);
