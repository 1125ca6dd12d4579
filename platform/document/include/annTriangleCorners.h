#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "annTriangulation.h"

// Calls `use(face, a, b, c)` for every triangle of `ann_for_each_triangle`, with indices into `mesh.corners`. For data
// that differs between the corners of one vertex, for example normals.
template <typename Use>
void ann_for_each_triangle_of_corners(const annMesh& mesh, Use use) {
  annTriangulator triangulator;
  std::vector<annVector> points;
  std::vector<std::uint32_t> order;
  std::uint32_t start = 0;
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    const auto corners = mesh.face(face);
    if (corners.size() == 3) {
      use(face, start, start + 1, start + 2);
    } else {
      points.clear();
      for (const std::uint32_t vertex : corners) points.push_back(mesh.vertices->points[vertex]);
      for (auto i = static_cast<std::uint32_t>(order.size()); i < corners.size(); ++i) order.push_back(i);
      for (const auto& triangle : triangulator.triangles(points, std::span(order).first(corners.size()))) {
        use(face, start + triangle[0], start + triangle[1], start + triangle[2]);
      }
    }
    start += static_cast<std::uint32_t>(corners.size());
  }
}
