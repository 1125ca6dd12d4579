#pragma once

#include "utBool.h"
#include "velTableInstance.h"

// Whether a resource that is on or off is on.
inline bool vlt_flag(const velTableInstance& resources, const char* key) {
  return resources.value<utBool>(key, utFALSE) == utTRUE;
}
