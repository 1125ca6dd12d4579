#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// The encoding of a file whose format has a binary and a text form.
enum velFileFormat {
  velFORMAT_BINARY = 0,
  velFORMAT_ASCII = 1,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velFileFormat_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velFileFormat& value);
VELPLATFORM_API utString co_value_to_text(velFileFormat value);
