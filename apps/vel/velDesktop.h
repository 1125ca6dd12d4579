#pragma once

#include <string>

// Opens a file with the desktop's default program for it, without waiting. Does nothing without a desktop, without
// xdg-open, or when the standard output is not a terminal.
void vel_open_on_desktop(const std::string& file);
