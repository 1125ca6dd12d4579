#pragma once

#include <cstddef>
#include <string_view>

#include "apExport.h"

// Numbers as text, independent of the locale and of who called setlocale.

// Reads one real number from the front of `text` and takes it away. Accepts what CAD files hold: a leading "+", "1.",
// ".5", exponents with e, E, d or D, "inf" and "nan". False, and `text` as it was, when no number stands there.
VELPLATFORM_API bool ap_take_double(std::string_view& text, double& value);
VELPLATFORM_API bool ap_take_int(std::string_view& text, long long& value);

// The whole of `text` as one number, blanks around it allowed.
VELPLATFORM_API bool ap_parse_double(std::string_view text, double& value);
VELPLATFORM_API bool ap_parse_int(std::string_view text, long long& value);

// The shortest text that reads back as the same number. `to` has room for `ap_number_room` characters; returns the end.
inline constexpr std::size_t ap_number_room = 32;
VELPLATFORM_API char* ap_write_number(char* to, double value);
VELPLATFORM_API char* ap_write_number(char* to, float value);
VELPLATFORM_API char* ap_write_number(char* to, long long value);
