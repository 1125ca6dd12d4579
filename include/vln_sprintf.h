#pragma once

#include "vlnExport.h"

namespace vln {

// Does the same as the standard library's sprintf. It is in a namespace so that it does not replace the C library's
// function for the rest of the process.
VLN_API int sprintf(char* to, const char* format, ...) __attribute__((format(printf, 2, 3)));

}  // namespace vln
