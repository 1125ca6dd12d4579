#pragma once

#include <vector>

#include "annVector.h"
#include "vltOnce.h"

// Gives normals the length 1. Zero normals, and those whose length is 1 except for rounding, are not changed. False
// when a normal is not finite; those before it are normalised then.
bool vlt_normalise(std::vector<annVector>& normals);

// Normalises the normals of a file. If one is not finite, all are removed and a warning is counted.
void vlt_settle_normals(std::vector<annVector>& normals, vltOnce& findings);
