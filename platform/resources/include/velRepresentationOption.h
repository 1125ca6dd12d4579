#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// Whether bodies are written as exact shapes, as facets, or in their existing representation.
enum velRepresentationOption {
  velREPRESENTATION_AS_IS = 0,
  velREPRESENTATION_EXACT = 1,
  velREPRESENTATION_FACETS = 2,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velRepresentationOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velRepresentationOption& value);
VELPLATFORM_API utString co_value_to_text(velRepresentationOption value);
