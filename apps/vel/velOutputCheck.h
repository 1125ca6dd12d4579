#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velExitCode.h"

// Checks before any work begins that the output can be written and is not one of the inputs. Reports the error and
// returns the exit code.
velExitCode vel_check_output(const std::string& output, const std::vector<std::string>& inputs, velConsole& console);
