#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// The STEP application protocol.
enum velStepAPOption {
  velSTEP_AP203 = 0,
  velSTEP_AP214 = 1,
  velSTEP_AP242 = 2,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velStepAPOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velStepAPOption& value);
VELPLATFORM_API utString co_value_to_text(velStepAPOption value);
