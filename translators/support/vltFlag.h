#pragma once

#include "utBool.h"
#include "velTableInstance.h"

// The value of an on/off resource.
inline bool vlt_flag(const velTableInstance& resources, const char* key) {
  return resources.value<utBool>(key, utFALSE) == utTRUE;
}
