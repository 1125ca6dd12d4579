#pragma once

#include <cstddef>
#include <vector>

#include "exaBrepValues.h"

// The content of the sections before the shapes, which shapes refer to by number.
struct exaBrepContent {
  std::size_t locations = 0, curves2d = 0, curves = 0, polygons = 0, surfaces = 0;
  std::vector<std::size_t> facet_polygons;  // the highest node index of each
  std::vector<std::size_t> triangulations;  // the number of nodes of each
  bool has_ends = false;                    // curves on surfaces have end parameters
  bool has_normals = false;                 // triangulations have a flag for normals
};

// Reads the shapes of a BREP stream and the reference to the root shape.
void exa_walk_shapes(exaBrepValues& values, const exaBrepContent& content);
