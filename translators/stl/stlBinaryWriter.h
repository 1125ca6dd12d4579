#pragma once

#include <vector>

#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsResult.h"
#include "vltPlacedMesh.h"

// Writes all bodies as one list of triangles. SOLID_NAME goes into the remarks; one that begins with "solid" is put
// behind another word, because readers would take the file for text. The colours of faces go into the attribute bytes
// (see stlColours.h) unless WRITE_MATERIALS is off.
velabsResult stl_write_binary(const std::vector<vltPlacedMesh>& bodies, const velTableInstance& resources,
                              velabsOfStream& stream, velabsOutput& output);
