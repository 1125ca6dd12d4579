#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utBool.h"
#include "utString.h"

// How a value of one type is read from text and shown as text. An enumerated type takes part by two overloads beside
// its declaration: `bool co_value_from_text(const utString&, E&)` and `utString co_value_to_text(E)`.

VELPLATFORM_API bool co_value_from_text(const utString& text, utString& value);
// Whole numbers and real numbers follow the locale that is in force for this thread: the decimal point is the point
// unless the thread has a locale of its own, as a locale-numbers object gives it. Not-a-number and infinity are
// refused.
VELPLATFORM_API bool co_value_from_text(const utString& text, double& value);
VELPLATFORM_API bool co_value_from_text(const utString& text, int& value);
// "0" and "1", "false" and "true" in any case.
VELPLATFORM_API bool co_value_from_text(const utString& text, utBool& value);

VELPLATFORM_API utString co_value_to_text(const utString& value);
VELPLATFORM_API utString co_value_to_text(double value);
VELPLATFORM_API utString co_value_to_text(int value);
VELPLATFORM_API utString co_value_to_text(utBool value);

// For enumerated types whose values count from 0: the position of `text` among `names`, case aside; -1 if it is none. A
// dash will do for a blank: names of several words can then be typed as one.
VELPLATFORM_API int co_position_of_name(const utStringcoDList& names, const utString& text);
