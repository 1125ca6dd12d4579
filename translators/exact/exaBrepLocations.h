#pragma once

#include <cstddef>

#include "exaBrepValues.h"

// Walks over the locations of a BREP stream. How many there are for the shapes to refer to: those that come to nothing,
// or to the same as one before, are not kept.
std::size_t exa_walk_locations(exaBrepValues& values);
