#pragma once

#include <cstdint>
#include <vector>

#include "annMesh.h"
#include "viewMesh.h"

// Gives a mesh vertices, corners and edges. `places` holds the distinct point of each corner, three for a triangle, and
// `sources` the index of that corner in `source.corners`, whose normal and colour are taken where there are any.
// Corners at one point with the same normal and colour share a vertex. Vertices come out in the order of the points.
void view_split_at_creases(const annMesh& source, const std::vector<annVector>& points,
                           const std::vector<std::uint32_t>& places, const std::vector<std::uint32_t>& sources,
                           viewMesh& made);
