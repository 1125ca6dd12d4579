#pragma once

#include <cstdint>
#include <span>

#include "apExport.h"

// Checks of long arrays of numbers at the speed of memory.

// True when no number is infinite or not a number.
VELPLATFORM_API bool ap_all_finite(std::span<const double> numbers);
VELPLATFORM_API bool ap_all_finite(std::span<const float> numbers);

// True if no number is larger than `most`.
VELPLATFORM_API bool ap_all_at_most(std::span<const std::uint32_t> numbers, std::uint32_t most);
