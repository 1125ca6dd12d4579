#pragma once

#include <string>

#include "apPathName.h"

// A path as the system takes it. Empty, which names nothing, for what no file can be called: an invalid path, text
// without bytes for it, text with a null character inside.
std::string ap_system_path(const apPathName& path);
