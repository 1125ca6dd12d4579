#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// How geometry is processed during a translation.
enum velProcessingOption {
  velPROCESSING_NONE = 0,
  velPROCESSING_CHECK = 1,
  velPROCESSING_HEAL = 2,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velProcessingOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velProcessingOption& value);
VELPLATFORM_API utString co_value_to_text(velProcessingOption value);
