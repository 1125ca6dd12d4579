#pragma once

#include <cstddef>
#include <string_view>

#include "apExport.h"

// Numbers as text, independent of the locale.

// Reads one real number and removes it from the front of `text`. Accepts the forms found in CAD files: a leading "+",
// "1.", ".5", exponents with e, E, d or D, "inf" and "nan". Returns false, with `text` unchanged, if it does not begin
// with a number.
VELPLATFORM_API bool ap_take_double(std::string_view& text, double& value);
VELPLATFORM_API bool ap_take_int(std::string_view& text, long long& value);

// Reads the whole of `text` as one number; blanks around it are allowed.
VELPLATFORM_API bool ap_parse_double(std::string_view text, double& value);
VELPLATFORM_API bool ap_parse_int(std::string_view text, long long& value);

// Writes the shortest text that reads back as the same number. `to` has room for `ap_number_room` characters; returns
// the end.
inline constexpr std::size_t ap_number_room = 32;
VELPLATFORM_API char* ap_write_number(char* to, double value);
VELPLATFORM_API char* ap_write_number(char* to, float value);
VELPLATFORM_API char* ap_write_number(char* to, long long value);
