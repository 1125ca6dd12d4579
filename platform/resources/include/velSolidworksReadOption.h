#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// What is read from a part that has both exact geometry and facets.
enum velSolidworksReadOption {
  velREAD_EXACT = 0,
  velREAD_FACETS = 1,
  velREAD_BOTH = 2,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velSolidworksReadOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velSolidworksReadOption& value);
VELPLATFORM_API utString co_value_to_text(velSolidworksReadOption value);
