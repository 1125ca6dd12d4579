#pragma once

#include <vector>

#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsResult.h"
#include "vltPlacedMesh.h"

// Writes one solid for each body, named as its node; with SOLID_NAME, all in one solid of that name. DIGITS says how
// many significant digits coordinates get.
velabsResult stl_write_text(const std::vector<vltPlacedMesh>& bodies, const velTableInstance& resources,
                            velabsOfStream& stream, velabsOutput& output);
