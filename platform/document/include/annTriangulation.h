#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "annMesh.h"
#include "annVector.h"
#include "apExport.h"

class annEarCutter;

// The normal of a face, scaled to twice its area, by Newell's method; also correct for faces that are not flat or not
// convex.
VELPLATFORM_API annVector ann_area_normal(std::span<const annVector> points, std::span<const std::uint32_t> face);

// Splits one face into corners - 2 triangles that keep its winding, by cutting ears in the plane of the face's
// normal: right for concave faces too. A face that crosses itself or has no area still gives corners - 2 triangles.
class VELPLATFORM_API annTriangulator {
 public:
  annTriangulator();
  ~annTriangulator();

  // The triangles as vertex indices; valid until the next call.
  std::span<const std::array<std::uint32_t, 3>> triangles(std::span<const annVector> points,
                                                          std::span<const std::uint32_t> face);

 private:
  void split_quad(std::span<const annVector> points, std::span<const std::uint32_t> face);
  bool split_as_fan(std::span<const annVector> points, std::span<const std::uint32_t> face);
  void cut_ears(std::span<const annVector> points, std::span<const std::uint32_t> face);

  std::vector<std::array<std::uint32_t, 3>> triangles_;
  std::unique_ptr<annEarCutter> ear_cutter_;  // made for the first face that needs it
};

// Calls `use(face, a, b, c)` for every triangle of a mesh, face by face.
template <typename Use>
void ann_for_each_triangle(const annMesh& mesh, Use use) {
  if (mesh.all_triangles()) {
    const std::uint32_t* corner = mesh.corners.data();
    for (std::size_t face = 0; face < mesh.face_count(); ++face, corner += 3)
      use(face, corner[0], corner[1], corner[2]);
    return;
  }
  annTriangulator triangulator;
  const std::span<const annVector> points = mesh.vertices->points;
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    auto corners = mesh.face(face);
    if (corners.size() == 3) {
      use(face, corners[0], corners[1], corners[2]);
      continue;
    }
    for (const auto& triangle : triangulator.triangles(points, corners)) {
      use(face, triangle[0], triangle[1], triangle[2]);
    }
  }
}
