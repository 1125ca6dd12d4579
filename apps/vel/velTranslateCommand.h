#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velExitCode.h"
#include "vlnTranslator.h"

// `vel translate`: one or more files into one.
struct velTranslateRequest {
  std::vector<std::string> inputs;
  std::string output;
  std::string format;  // empty: the extension of the output chooses
  vlnTranslator::Resources input_options;
  vlnTranslator::Resources output_options;
  bool quiet = false;
  bool json = false;
};

velExitCode vel_translate(const velTranslateRequest& request, velConsole& console);
