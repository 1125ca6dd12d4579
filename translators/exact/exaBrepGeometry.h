#pragma once

#include "exaBrepValues.h"

// Read one item of a geometry section of a BREP stream. An error is stored in `values`. `inside` is the number of
// curves or surfaces that are based on this item.
void exa_walk_curve2d(exaBrepValues& values);
void exa_walk_curve(exaBrepValues& values, int inside = 0);
void exa_walk_surface(exaBrepValues& values, int inside = 0);
