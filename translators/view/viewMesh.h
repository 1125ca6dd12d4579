#pragma once

#include <cstdint>
#include <vector>

#include "annBox.h"
#include "annMesh.h"

// A mesh made ready for drawing: triangles over vertices that have one point, one normal and perhaps one colour each,
// and the lines that show its form. Vertices are numbered in the order in which the triangles use them first.
struct viewMesh {
  struct Normal {
    float x = 0, y = 0, z = 0;
  };
  // Triangles of one look.
  struct Range {
    std::uint32_t material;  // of the mesh it was made from, or `annMesh::no_material`
    std::uint32_t first, count;
  };

  std::vector<annVector> points;
  std::vector<Normal> normals;
  std::vector<annColour> colours;      // for each vertex, or none
  std::vector<std::uint32_t> corners;  // three for each triangle
  std::vector<Range> ranges;
  std::vector<std::uint32_t> edges;  // two vertices for each line
  // About how far the lines are apart: the area of the triangles over the length of the lines; 0 without lines.
  double line_spacing = 0;
  annBox box;
  // A solid's skin: no holes, all triangles facing outwards. Only then is what lies behind a triangle known.
  bool closed = false;

  std::size_t triangle_count() const { return corners.size() / 3; }
};

// Points at the same place are one. Normals are the mesh's own, of corners or vertices, where it has them; triangles at
// corners without one shade into each other where they meet at less than a little over 30 degrees. Lines are where
// normals, the mesh's own or those of triangles, differ by more, and along free borders. Triangles without any extent
// are skipped, and so nothing may remain.
viewMesh view_make_mesh(const annMesh& mesh);
