#pragma once

#include "vlnExport.h"

// Sets a variable from NAME=VALUE, for code that reads the runtime library's environment and for the platform's.
// Without "=" the whole text is the name and the value is empty. Nonzero on success; 0 for a null pointer, an empty
// name, and for text that does not convert (the runtime library's variable is then set already).
VLN_API int vln_putenv(const char* assignment);
