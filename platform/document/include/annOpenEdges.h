#pragma once

#include <cstddef>

#include "annMesh.h"
#include "apExport.h"

// The number of open edges of a mesh. An edge of a face is not open if another face has the same edge in the opposite
// direction. Each edge has at most one partner, so a third face at an edge leaves one open. Vertices at exactly equal
// points are treated as one, and edges of length 0 are ignored. A mesh with faces and without open edges is closed: it
// has an inside. The time is linear in the number of corners.
VELPLATFORM_API std::size_t ann_open_edges(const annMesh& mesh);
