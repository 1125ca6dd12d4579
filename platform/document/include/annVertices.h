#pragma once

#include <cstdint>
#include <vector>

#include "annColour.h"
#include "annVector.h"

// The vertices that one or more meshes share: a position for each, and, for all of them or for none, a normal of
// length 1 and a colour. Colours of vertices, their opacity included, stand in place of those that faces and nodes
// have, which show where vertices have none; between the corners of a face they blend into each other.
struct annVertices {
  std::vector<annVector> points;
  std::vector<annVector> normals;
  std::vector<annColour> colours;

  std::uint32_t count() const { return static_cast<std::uint32_t>(points.size()); }
};
