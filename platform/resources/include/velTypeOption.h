#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// The kind of entity that a translation includes.
enum velTypeOption {
  velTYPE_ALL = 0,
  velTYPE_SOLIDS = 1,
  velTYPE_SURFACES = 2,
  velTYPE_CURVES = 3,
  velTYPE_POINTS = 4,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velTypeOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velTypeOption& value);
VELPLATFORM_API utString co_value_to_text(velTypeOption value);
