#pragma once

#include <string>
#include <string_view>

#include "annTransform.h"

// Formatting of attribute values.

// A text for a quoted attribute: escaped, with U+FFFD for bytes that are not UTF-8 and characters that XML cannot
// store. Sets `replaced` when there are such.
std::string threemf_attribute_text(std::string_view text, bool& replaced);

// The buffer size for the longest number.
inline constexpr std::size_t threemf_number_room = 40;

// `digits` is the number of significant digits; 0 gives the shortest text that reads back as the same number. Returns
// the end.
char* threemf_write_number(char* to, double value, int digits);

// Twelve numbers in the form that `threemf_transform` reads, always in the shortest text; lengths are multiplied by
// `factor`.
std::string threemf_transform_text(const annTransform& transform, double factor);
