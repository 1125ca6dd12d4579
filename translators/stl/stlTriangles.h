#pragma once

#include <array>
#include <cmath>
#include <utility>

#include "annTriangulation.h"
#include "vltPlacedMesh.h"

// What both forms do alike with the triangles of a body.

// The unit normal, the null vector when the triangle has no area.
inline annVector stl_normal(const std::array<annVector, 3>& t) {
  const annVector n = ann_cross(t[1] - t[0], t[2] - t[0]);
  const double length = std::sqrt(ann_dot(n, n));
  return length > 0 && std::isfinite(length) ? n * (1 / length) : annVector{};
}

// Calls `use(face, corners)` for each triangle of a body where it is placed, counter-clockwise from outside also when
// the placement mirrors. Stops, with false, when `use` returns false.
template <typename Use>
bool stl_for_each_triangle(const vltPlacedMesh& body, Use use) {
  const std::vector<annVector>& points = body.mesh->vertices->points;
  const bool placed = !body.placement.is_identity(), mirrors = body.placement.mirrors();
  auto corner = [&](std::uint32_t number) { return placed ? body.placement.point(points[number]) : points[number]; };
  bool going = true;
  ann_for_each_triangle(*body.mesh, [&](std::size_t face, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    if (!going) return;
    if (mirrors) std::swap(b, c);
    going = use(face, std::array<annVector, 3>{corner(a), corner(b), corner(c)});
  });
  return going;
}
