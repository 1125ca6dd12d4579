#pragma once

#include <cstddef>
#include <vector>

#include "exaBrepValues.h"

// What the sections before the shapes hold, which the shapes refer to by number.
struct exaBrepContent {
  std::size_t locations = 0, curves2d = 0, curves = 0, polygons = 0, surfaces = 0;
  std::vector<std::size_t> facet_polygons;  // the highest node of each
  std::vector<std::size_t> triangulations;  // the number of nodes of each
  bool has_ends = false;                    // curves on surfaces say where they begin and end
  bool has_normals = false;                 // triangulations say whether they have normals
};

// Walks over the shapes of a BREP stream and over the one that it is for.
void exa_walk_shapes(exaBrepValues& values, const exaBrepContent& content);
