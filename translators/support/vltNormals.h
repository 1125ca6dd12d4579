#pragma once

#include <vector>

#include "annVector.h"
#include "vltOnce.h"

// Normalises the normals of a file. Zero normals, and those whose length is 1 except for rounding, are not changed. If
// a normal is not finite, all normals are removed and a warning is counted.
void vlt_settle_normals(std::vector<annVector>& normals, vltOnce& findings);
