#pragma once

#include <cstdint>
#include <vector>

#include "annBox.h"
#include "annMesh.h"

// A mesh prepared for drawing: triangles over vertices with one point, one normal and an optional colour each, and the
// lines that show its shape. Vertices are numbered in the order in which the triangles use them.
struct viewMesh {
  struct Normal {
    float x = 0, y = 0, z = 0;
  };
  // Triangles of one material.
  struct Range {
    std::uint32_t material;  // of the source mesh, or `annMesh::no_material`
    std::uint32_t first, count;
  };

  std::vector<annVector> points;
  std::vector<Normal> normals;
  std::vector<annColour> colours;      // one for each vertex, or empty
  std::vector<std::uint32_t> corners;  // three for each triangle
  std::vector<Range> ranges;
  std::vector<std::uint32_t> edges;  // two vertices for each line
  // The approximate distance between lines: the area of the triangles divided by the length of the lines; 0 without
  // lines.
  double line_spacing = 0;
  annBox box;
  // True for the surface of a solid: no holes, all triangles facing outwards. Only then may cuts be filled.
  bool closed = false;

  std::size_t triangle_count() const { return corners.size() / 3; }
};

// Equal points are merged. Normals are the mesh's, of corners or vertices, if it has them. At corners without one,
// triangles that meet at less than about 30 degrees are smoothed. Lines are free borders, and edges where the mesh's
// or the triangles' normals differ by more. Triangles with equal points are skipped, so the result may be empty.
viewMesh view_make_mesh(const annMesh& mesh);
