#pragma once

#include <array>
#include <cmath>
#include <memory>
#include <numbers>

#include "annMesh.h"

// A bent sheet of quads along Y, from 0 to 1: up at x = 0, a hard edge, flat at z = 1 until x = 2, round a fillet of
// radius 1 in six steps and down at x = 3. The corners have the surface's own normals when asked for.
inline constexpr int rail_steps = 6;

inline std::shared_ptr<annMesh> rail(bool with_normals) {
  auto mesh = std::make_shared<annMesh>();
  annVertices& vertices = *mesh->vertices;
  const auto add_ring = [&](double x, double z) {
    for (const double y : {0.0, 1.0}) vertices.points.push_back({x, y, z});
  };
  const auto add_strip = [&](std::uint32_t ring, const annVector& from, const annVector& to) {
    mesh->add_face(std::array<std::uint32_t, 4>{2 * ring, 2 * ring + 2, 2 * ring + 3, 2 * ring + 1});
    if (!with_normals) return;
    const auto first = static_cast<std::uint32_t>(vertices.normal_pool.size());
    vertices.normal_pool.insert(vertices.normal_pool.end(), {from, to});
    mesh->corner_normals.insert(mesh->corner_normals.end(), {first, first + 1, first + 1, first});
  };
  const auto on_fillet = [](int step) {
    if (step == 0) return annVector{0, 0, 1};
    if (step == rail_steps) return annVector{1, 0, 0};
    const double angle = std::numbers::pi / 2 * (1 - static_cast<double>(step) / rail_steps);
    return annVector{std::cos(angle), 0, std::sin(angle)};
  };
  add_ring(0, 0);
  add_ring(0, 1);
  for (int step = 0; step <= rail_steps; ++step) add_ring(2 + on_fillet(step).x, on_fillet(step).z);
  add_ring(3, -1);
  add_strip(0, {-1, 0, 0}, {-1, 0, 0});
  add_strip(1, {0, 0, 1}, {0, 0, 1});
  for (int step = 0; step < rail_steps; ++step) {
    add_strip(static_cast<std::uint32_t>(2 + step), on_fillet(step), on_fillet(step + 1));
  }
  add_strip(2 + rail_steps, {1, 0, 0}, {1, 0, 0});
  return mesh;
}
