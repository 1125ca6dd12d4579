#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "annColour.h"
#include "annTransform.h"

// The kinds of values that attributes hold, as text. False or nothing for a text that is none.

bool threemf_number(const char* text, double& value);
bool threemf_index(const char* text, std::uint32_t& value);

// "#RRGGBB" or "#RRGGBBAA".
std::optional<annColour> threemf_colour(std::string_view text);

// Twelve numbers, those of a matrix that is multiplied with a row vector, the translation last.
std::optional<annTransform> threemf_transform(std::string_view text);
