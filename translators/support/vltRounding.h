#pragma once

#include <vector>

#include "vltPlacedMesh.h"

// For formats that hold coordinates as floats: warns, once for a file, when the bodies lie so far from the origin for
// their size that rounding moves points by more than a hundred thousandth of the diagonal of the box around all of
// them: about a tenth of a millimetre for ten metres, where shapes begin to look rough and small faces fall together.
// `instead` says what holds the numbers as they are. Costs nothing to speak of for bodies near the origin.
void vlt_tell_rounding(const std::vector<vltPlacedMesh>& bodies, const char* format, const char* instead,
                       velabsOutput& output);
