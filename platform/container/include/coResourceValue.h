#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utBool.h"
#include "utString.h"

// Conversions between values and text. An enumerated type declares two overloads beside its definition: `bool
// co_value_from_text(const utString&, E&)` and `utString co_value_to_text(E)`.

VELPLATFORM_API bool co_value_from_text(const utString& text, utString& value);
// Integers and real numbers. Real numbers use this thread's locale if a locale-numbers object set one, else a decimal
// point. Not-a-number and infinity are rejected.
VELPLATFORM_API bool co_value_from_text(const utString& text, double& value);
VELPLATFORM_API bool co_value_from_text(const utString& text, int& value);
// "0" and "1", "false" and "true" in any case.
VELPLATFORM_API bool co_value_from_text(const utString& text, utBool& value);

VELPLATFORM_API utString co_value_to_text(const utString& value);
VELPLATFORM_API utString co_value_to_text(double value);
VELPLATFORM_API utString co_value_to_text(int value);
VELPLATFORM_API utString co_value_to_text(utBool value);

// For enumerated types whose values count from 0: the position of `text` among `names`, ignoring case; -1 if it is not
// found. A dash matches a space, so that names of several words can be typed as one.
VELPLATFORM_API int co_position_of_name(const utStringcoDList& names, const utString& text);
