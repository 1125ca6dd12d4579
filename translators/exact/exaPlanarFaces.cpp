#include "exaPlanarFaces.h"

#include <Precision.hxx>
#include <algorithm>
#include <cmath>

#include "annTriangulation.h"

namespace {

bool is_flat(const std::vector<annVector>& points, exaCorners corners) {
  if (corners.size() == 3) return true;
  const annVector area = exa_area_vector(points, corners);
  const double size = std::sqrt(ann_dot(area, area));
  if (!(size > 0)) return false;
  const annVector normal = area * (1 / size);
  return std::all_of(corners.begin(), corners.end(), [&](std::uint32_t corner) {
    return std::abs(ann_dot(points[corner] - points[corners[0]], normal)) <= Precision::Confusion();
  });
}

}  // namespace

annVector exa_area_vector(const std::vector<annVector>& points, exaCorners corners) {
  annVector sum;
  const annVector origin = points[corners[0]];
  for (std::size_t i = 1; i + 1 < corners.size(); ++i) {
    sum = sum + ann_cross(points[corners[i]] - origin, points[corners[i + 1]] - origin);
  }
  return sum;
}

void exa_for_each_planar_face(const annMesh& mesh, const std::function<bool(std::size_t, exaCorners)>& use) {
  annTriangulator triangulator;
  const std::vector<annVector>& points = mesh.vertices->points;
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    const exaCorners corners = mesh.face(face);
    if (is_flat(points, corners)) {
      if (!use(face, corners)) return;
      continue;
    }
    for (const auto& triangle : triangulator.triangles(points, corners)) {
      if (!use(face, exaCorners(triangle))) return;
    }
  }
}

std::size_t exa_planar_face_count(const annMesh& mesh) {
  if (mesh.all_triangles()) return mesh.face_count();
  std::size_t count = 0;
  exa_for_each_planar_face(mesh, [&](std::size_t, exaCorners) { return ++count; });
  return count;
}
