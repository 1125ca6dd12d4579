#pragma once

#include <cstdint>
#include <vector>

#include "annMesh.h"
#include "viewMesh.h"

// Fills the vertices, corners and edges of a mesh. `places` has the index of the distinct point of each corner, three
// for a triangle. `sources` has the index of that corner in `source.corners`, for its normal and colour. Corners at
// one point with the same normal and colour share a vertex. Vertices are in the order of the points.
void view_split_at_creases(const annMesh& source, const std::vector<annVector>& points,
                           const std::vector<std::uint32_t>& places, const std::vector<std::uint32_t>& sources,
                           viewMesh& made);
