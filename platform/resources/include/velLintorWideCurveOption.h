#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// How a curve with a width is represented.
enum velLintorWideCurveOption {
  velWIDE_CURVE_AS_CURVE = 0,
  velWIDE_CURVE_AS_OUTLINE = 1,
  velWIDE_CURVE_AS_FACE = 2,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velLintorWideCurveOption_strings(utStringcoDList& names);

VELPLATFORM_API bool co_value_from_text(const utString& text, velLintorWideCurveOption& value);
VELPLATFORM_API utString co_value_to_text(velLintorWideCurveOption value);
