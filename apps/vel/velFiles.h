#pragma once

#include <string>

#include "vlnFile.h"

// Helpers for file names that the user gives.

// The file of that name, in the encoding and the file system of the process.
vlnFile vel_file(const std::string& name);

// The name without its directories.
std::string vel_last_component(const std::string& name);

// True when both names refer to the same file, also through links, or when both files are missing and have the same
// full path.
bool vel_is_same_file(const std::string& left, const std::string& right);
