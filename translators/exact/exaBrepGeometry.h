#pragma once

#include "exaBrepValues.h"

// Walk over one item of a geometry section of a BREP stream; what is wrong with it becomes a fault of the values.
// `inside` counts the curves or surfaces that it is the basis of.
void exa_walk_curve2d(exaBrepValues& values);
void exa_walk_curve(exaBrepValues& values, int inside = 0);
void exa_walk_surface(exaBrepValues& values, int inside = 0);
