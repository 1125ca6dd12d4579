#pragma once

#include <vector>

#include "annVector.h"
#include "vltOnce.h"

// Brings the normals of a file to length 1. Those of length 0 stay, and so do those that are as near to 1 as rounding
// leaves them. With one that is not of finite numbers all are dropped, and a warning counted.
void vlt_settle_normals(std::vector<annVector>& normals, vltOnce& findings);
