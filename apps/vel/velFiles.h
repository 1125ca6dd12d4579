#pragma once

#include <string>

#include "vlnFile.h"

// Files by the names that their user gives them.

// The file of that name in the process's own encoding and file system.
vlnFile vel_file(const std::string& name);

// The name without its directories.
std::string vel_last_component(const std::string& name);

// One file through any of its names, links included; where nothing is there yet, the same name.
bool vel_is_same_file(const std::string& left, const std::string& right);
