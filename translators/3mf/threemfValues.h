#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "annColour.h"
#include "annTransform.h"

// Parsing of attribute values. False or empty for an invalid text.

bool threemf_number(const char* text, double& value);
bool threemf_index(const char* text, std::uint32_t& value);

// "#RRGGBB" or "#RRGGBBAA".
std::optional<annColour> threemf_colour(std::string_view text);

// Twelve numbers of a matrix for row vectors, with the translation last.
std::optional<annTransform> threemf_transform(std::string_view text);
