#pragma once

#include <functional>

#include "velConsole.h"
#include "velExitCode.h"

// A command with everything that was said about it, ready to run.
using velCommand = std::function<velExitCode(velConsole&)>;

// Makes the command out of the program's words. Empty when there is nothing to run: the help that was asked for, or
// what is wrong with the words, was said, and `exit_code` is set.
velCommand vel_parse_command_line(int count, char** words, velConsole& console, velExitCode& exit_code);
