#pragma once

#include "vlnExport.h"

namespace vln {

// What the standard library's function of the same name does. It stands in a namespace, so that it never takes the
// place of the C library's for the rest of the process.
VLN_API int sprintf(char* to, const char* format, ...) __attribute__((format(printf, 2, 3)));

}  // namespace vln
