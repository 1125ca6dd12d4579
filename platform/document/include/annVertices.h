#pragma once

#include <cstdint>
#include <vector>

#include "annColour.h"
#include "annVector.h"

// The vertices that one or more meshes share: a position for each, and, for all of them or for none, a normal of
// length 1 and a colour.
struct annVertices {
  std::vector<annVector> points;
  std::vector<annVector> normals;
  std::vector<annColour> colours;

  std::uint32_t count() const { return static_cast<std::uint32_t>(points.size()); }
};
