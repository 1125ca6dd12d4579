#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// How trimmed surfaces are bounded: by curves in space, in the parameters of the surface, or as the file prefers.
enum velTrimOption {
  velTRIM_AS_PREFERRED = 0,
  velTRIM_MODEL_SPACE = 1,
  velTRIM_PARAMETER_SPACE = 2,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velTrimOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velTrimOption& value);
VELPLATFORM_API utString co_value_to_text(velTrimOption value);
