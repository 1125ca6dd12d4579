#pragma once

#include "vlnExport.h"

// Sets an environment variable from NAME=VALUE for both the C library and the platform. Without "=" the whole text is
// the name and the value is empty. Returns nonzero on success. Returns 0 for a null pointer, an empty name, and a text
// that does not convert; in the last case the C library's variable is already set.
VLN_API int vln_putenv(const char* assignment);
