#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velExitCode.h"

// Whether the name is a directory's: of one that is there, or by its end.
bool vel_names_directory(const std::string& output);

// Looks at the place of an output before any work begins: whether a file can stand there, and that it is none of the
// inputs. Says what is wrong, and gives the exit code.
velExitCode vel_check_output(const std::string& output, const std::vector<std::string>& inputs, velConsole& console);
