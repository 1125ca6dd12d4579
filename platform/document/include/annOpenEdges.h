#pragma once

#include <cstddef>

#include "annMesh.h"
#include "apExport.h"

// How many edges of a mesh are open: an edge of a face is not, if another face has the same edge in the opposite
// direction. Each edge has one partner at most, so a third face at an edge leaves one open. Vertices at exactly equal
// points count as one, and edges of length 0 do not count. A mesh with faces and without open edges is closed: it has
// an inside. Takes time in proportion to the corners.
VELPLATFORM_API std::size_t ann_open_edges(const annMesh& mesh);
