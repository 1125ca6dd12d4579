#pragma once

#include <cstdint>
#include <vector>

#include "annVertices.h"
#include "viewMesh.h"

// Gives a mesh vertices, corners and edges. `places` names the distinct point of each corner, three for a triangle, and
// `originals` the vertex of `source` that the corner came from, whose normal and colour are taken where there are any.
// Vertices come out in the order of the points.
void view_split_at_creases(const annVertices& source, const std::vector<annVector>& points,
                           const std::vector<std::uint32_t>& places, const std::vector<std::uint32_t>& originals,
                           viewMesh& made);
