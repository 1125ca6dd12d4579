#include "annTriangulation.h"

#include "annEarCutter.h"

namespace {

bool faces_along(annVector normal, annVector a, annVector b, annVector c) {
  return ann_dot(normal, ann_cross(b - a, c - a)) > 0;
}

}  // namespace

annVector ann_area_normal(std::span<const annVector> points, std::span<const std::uint32_t> face) {
  const annVector origin = points[face[0]];
  annVector sum;
  for (std::size_t i = 2; i < face.size(); ++i) {
    sum = sum + ann_cross(points[face[i - 1]] - origin, points[face[i]] - origin);
  }
  return sum;
}

annTriangulator::annTriangulator() = default;
annTriangulator::~annTriangulator() = default;

std::span<const std::array<std::uint32_t, 3>> annTriangulator::triangles(std::span<const annVector> points,
                                                                         std::span<const std::uint32_t> face) {
  triangles_.clear();
  if (face.size() == 3) triangles_.push_back({face[0], face[1], face[2]});
  if (face.size() == 4) split_quad(points, face);
  if (face.size() > 4 && !split_as_fan(points, face)) cut_ears(points, face);
  return triangles_;
}

void annTriangulator::split_quad(std::span<const annVector> points, std::span<const std::uint32_t> face) {
  const annVector a = points[face[0]], b = points[face[1]], c = points[face[2]], d = points[face[3]];
  const annVector normal = ann_cross(c - a, d - b);
  const bool first = faces_along(normal, a, b, c) && faces_along(normal, a, c, d);
  if (!first && faces_along(normal, b, c, d) && faces_along(normal, b, d, a)) {
    triangles_.push_back({face[1], face[2], face[3]});
    triangles_.push_back({face[1], face[3], face[0]});
    return;
  }
  triangles_.push_back({face[0], face[1], face[2]});
  triangles_.push_back({face[0], face[2], face[3]});
}

bool annTriangulator::split_as_fan(std::span<const annVector> points, std::span<const std::uint32_t> face) {
  const annVector normal = ann_area_normal(points, face);
  const bool has_area = normal != annVector{};
  for (std::size_t i = 2; i < face.size(); ++i) {
    if (has_area && !faces_along(normal, points[face[0]], points[face[i - 1]], points[face[i]])) {
      triangles_.clear();
      return false;
    }
    triangles_.push_back({face[0], face[i - 1], face[i]});
  }
  return true;
}

void annTriangulator::cut_ears(std::span<const annVector> points, std::span<const std::uint32_t> face) {
  if (!ear_cutter_) ear_cutter_ = std::make_unique<annEarCutter>();
  ear_cutter_->cut(points, face, ann_area_normal(points, face), triangles_);
}
