#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velExitCode.h"

// Looks at the place of an output before any work begins: whether a file can stand there, and that it is none of the
// inputs. Says what is wrong, and gives the exit code.
velExitCode vel_check_output(const std::string& output, const std::vector<std::string>& inputs, velConsole& console);
