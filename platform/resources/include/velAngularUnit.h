#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// Units of plane angles.
enum velAngularUnit {
  velANGLE_DEGREE = 0,
  velANGLE_RADIAN = 1,
  velANGLE_GRADIAN = 2,
  velANGLE_ARC_MINUTE = 3,
  velANGLE_ARC_SECOND = 4,
  velANGLE_TURN = 5,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velAngularUnit_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velAngularUnit& value);
VELPLATFORM_API utString co_value_to_text(velAngularUnit value);
