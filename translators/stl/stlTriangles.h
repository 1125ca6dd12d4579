#pragma once

#include <cmath>
#include <utility>

#include "annTriangulation.h"
#include "vltPlacedMesh.h"

// Shared by both forms: the triangles of a body.

// The unit normal; zero when the triangle has no area.
inline annVector stl_normal(const annVector& a, const annVector& b, const annVector& c) {
  const annVector n = ann_cross(b - a, c - a);
  const double length = std::sqrt(ann_dot(n, n));
  return length > 0 && std::isfinite(length) ? n * (1 / length) : annVector{};
}

// Calls `use(face, a, b, c)` with the placed corners of each triangle of a body, counter-clockwise from outside even if
// the placement mirrors. Stops and returns false when `use` returns false.
template <typename Use>
bool stl_for_each_triangle(const vltPlacedMesh& body, Use use) {
  const std::vector<annVector>& points = body.mesh->vertices->points;
  const bool placed = !body.placement.is_identity(), mirrors = body.placement.mirrors();
  bool going = true;
  ann_for_each_triangle(*body.mesh, [&](std::size_t face, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    if (!going) return;
    if (!placed) {
      going = use(face, points[a], points[b], points[c]);
      return;
    }
    if (mirrors) std::swap(b, c);
    const annTransform& to = body.placement;
    going = use(face, to.point(points[a]), to.point(points[b]), to.point(points[c]));
  });
  return going;
}
