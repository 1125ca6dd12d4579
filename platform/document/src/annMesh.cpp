#include "annMesh.h"

#include <cmath>

#include "annTriangulation.h"

void annMesh::add_face(std::span<const std::uint32_t> face_corners) {
  if (face_starts.empty() && face_corners.size() != 3) {
    face_starts.reserve(corners.size() / 3 + 2);
    for (std::size_t start = 0; start <= corners.size(); start += 3) {
      face_starts.push_back(static_cast<std::uint32_t>(start));
    }
  }
  corners.insert(corners.end(), face_corners.begin(), face_corners.end());
  if (!face_starts.empty()) face_starts.push_back(static_cast<std::uint32_t>(corners.size()));
  if (!face_materials.empty()) face_materials.push_back(no_material);
}

void annMesh::set_face_material(std::size_t index, std::uint32_t material) {
  if (face_materials.empty() && material == no_material) return;
  if (face_materials.empty()) face_materials.resize(face_count(), no_material);
  face_materials[index] = material;
}

annVector annMesh::face_normal(std::size_t index) const {
  const annVector normal = ann_area_normal(vertices->points, face(index));
  const double length = std::hypot(normal.x, normal.y, normal.z);
  return length > 0 && std::isfinite(length) ? normal * (1 / length) : annVector{};
}
