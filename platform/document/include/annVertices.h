#pragma once

#include <cstdint>
#include <vector>

#include "annColour.h"
#include "annVector.h"

// The vertices that one or more meshes share: a position for each and, for all of them or for none, a normal of length
// 1 and a colour. Colours of vertices, including their opacity, replace those of faces and nodes; they are interpolated
// between the corners of a face.
struct annVertices {
  std::vector<annVector> points;
  std::vector<annVector> normals;
  std::vector<annColour> colours;

  // Normals of length 1 for meshes whose vertices have several, at hard edges. Their corners refer to them by index,
  // see `annMesh::corner_normals`. The number is independent of that of the points.
  std::vector<annVector> normal_pool;

  std::uint32_t count() const { return static_cast<std::uint32_t>(points.size()); }
};
