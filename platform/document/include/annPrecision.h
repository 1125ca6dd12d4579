#pragma once

#include "annBox.h"
#include "annDocument.h"
#include "apExport.h"

// The accuracy of coordinates in a box of the document: smaller differences are rounding errors. It is the distance
// between neighbouring numbers at the box's largest coordinate. If all vertices are floats and there are no exact
// shapes, these are floats. Else they are doubles with ten bits less, for the rounding errors of placements and
// kernels.
VELPLATFORM_API double ann_coordinate_step(const annDocument& document, const annBox& box);

// Rounds a value to the nearest multiple of the smallest power of ten not below `step`: with a step of 1e-12,
// -1.776e-15 is 0 and 59.99999999999993 is 60. A step of 0 changes nothing.
VELPLATFORM_API double ann_rounded(double value, double step);
