#pragma once

#include <cstddef>

#include "exaBrepValues.h"

// Reads the locations of a BREP stream. Returns how many the shapes can refer to; identity locations and duplicates do
// not count.
std::size_t exa_walk_locations(exaBrepValues& values);
