#pragma once

#include <vector>

#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsResult.h"
#include "vltPlacedMesh.h"

// Writes all bodies as one list of triangles. SOLID_NAME is written into the header; a name that begins with "solid"
// gets another word before it, because readers would treat the file as text. Face colours are written into the
// attribute bytes (see stlColours.h) unless WRITE_MATERIALS is off.
velabsResult stl_write_binary(const std::vector<vltPlacedMesh>& bodies, const velTableInstance& resources,
                              velabsOfStream& stream, velabsOutput& output);
