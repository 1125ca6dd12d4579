#pragma once

#include <functional>

#include "velConsole.h"
#include "velExitCode.h"

// A command with its options, ready to run.
using velCommand = std::function<velExitCode(velConsole&)>;

// Parses the arguments of the program. Returns an empty function when there is nothing to run: it has then printed the
// requested help or reported the error, and set `exit_code`.
velCommand vel_parse_command_line(int count, char** words, velConsole& console, velExitCode& exit_code);
