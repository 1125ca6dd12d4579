#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// How a model is displayed.
enum velDisplayOption {
  velDISPLAY_SHADED = 0,
  velDISPLAY_SHADED_WITH_EDGES = 1,
  velDISPLAY_WIREFRAME = 2,
  velDISPLAY_HIDDEN_LINE = 3,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velDisplayOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velDisplayOption& value);
VELPLATFORM_API utString co_value_to_text(velDisplayOption value);
