#pragma once

#include <string>
#include <string_view>

#include "annTransform.h"

// Values as attributes hold them.

// A text between quotes: escaped, and with U+FFFD for bytes that are no UTF-8 and characters that XML cannot hold;
// `replaced` becomes true when there were such.
std::string threemf_attribute_text(std::string_view text, bool& replaced);

// Room for the longest of them.
inline constexpr std::size_t threemf_number_room = 40;

// `digits` significant ones; 0 gives the shortest text that reads back as the same number. Returns the end.
char* threemf_write_number(char* to, double value, int digits);

// Twelve numbers as `threemf_transform` reads them, always the shortest text, lengths times `factor`.
std::string threemf_transform_text(const annTransform& transform, double factor);
