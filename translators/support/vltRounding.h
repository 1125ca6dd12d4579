#pragma once

#include <vector>

#include "vltPlacedMesh.h"

// For formats that store coordinates as floats. Warns, once per file, about bodies so far from the origin that
// rounding moves points visibly. The limit is a hundred thousandth of the diagonal of their bounding box. That is a
// tenth of a millimetre for ten metres; surfaces then look rough and small faces collapse. `instead` names a format
// that keeps the numbers. Fast for bodies near the origin.
void vlt_tell_rounding(const std::vector<vltPlacedMesh>& bodies, const char* format, const char* instead,
                       velabsOutput& output);
