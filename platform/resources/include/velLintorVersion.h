#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// The edition of a lintor schema.
enum velLintorVersion {
  velLINTOR_LATEST = 0,
  velLINTOR_1 = 1,
  velLINTOR_2 = 2,
  velLINTOR_3 = 3,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velLintorVersion_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velLintorVersion& value);
VELPLATFORM_API utString co_value_to_text(velLintorVersion value);
