#pragma once

#include <vector>

#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsResult.h"
#include "vltPlacedMesh.h"

// Writes one solid for each body, with the name of its node; with SOLID_NAME, one solid of that name for all. DIGITS
// is the number of significant digits of coordinates.
velabsResult stl_write_text(const std::vector<vltPlacedMesh>& bodies, const velTableInstance& resources,
                            velabsOfStream& stream, velabsOutput& output);
