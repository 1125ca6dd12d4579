#pragma once

#include <string>

// Has the user's desktop open a file with the program that is meant for it, and does not wait for that. Does nothing
// where there is no desktop or nothing that opens files, or where the standard output is no terminal.
void vel_open_on_desktop(const std::string& file);
