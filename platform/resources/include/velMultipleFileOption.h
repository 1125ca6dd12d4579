#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// Whether a model is written to one file or to one file for each part.
enum velMultipleFileOption {
  velMULTIPLE_ONE_FILE = 0,
  velMULTIPLE_FILE_PER_PART = 1,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velMultipleFileOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velMultipleFileOption& value);
VELPLATFORM_API utString co_value_to_text(velMultipleFileOption value);
