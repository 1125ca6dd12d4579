#pragma once

#include "annBox.h"
#include "annDocument.h"
#include "apExport.h"

// How finely coordinates in a box of the document are known: differences below this step are roundings. It is the
// distance between neighbouring numbers at the box's largest coordinate: of floats when all vertices are floats and
// there is no exact shape, else of doubles after some hundred roundings, as placements and kernels add them up.
VELPLATFORM_API double ann_coordinate_step(const annDocument& document, const annBox& box);

// The multiple of the smallest power of ten not below `step` that is nearest to a value: -1.776e-15 with a step of
// 1e-12 is 0, 59.99999999999993 is 60. A step of 0 changes nothing.
VELPLATFORM_API double ann_rounded(double value, double step);
