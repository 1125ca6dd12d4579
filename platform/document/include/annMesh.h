#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "annMaterial.h"
#include "annVertices.h"
#include "apExport.h"

// Faces with any number of corners over vertices that other meshes of the document may share. The corners of a face run
// counter-clockwise seen from outside.
struct VELPLATFORM_API annMesh {
  static constexpr std::uint32_t no_material = std::numeric_limits<std::uint32_t>::max();
  static constexpr std::uint32_t no_normal = std::numeric_limits<std::uint32_t>::max();

  // Never null. A mesh may use only some of them.
  std::shared_ptr<annVertices> vertices = std::make_shared<annVertices>();

  // Vertex indices, face after face.
  std::vector<std::uint32_t> corners;

  // The index in `corners` at which each face begins, followed by the end: one more than there are faces. Empty if all
  // faces are triangles.
  std::vector<std::uint32_t> face_starts;

  // For each corner the index of its normal in `vertices->normal_pool`, or `no_normal`. If it is not empty its size is
  // that of `corners`. If it is empty the corners have the normals of their vertices, `vertices->normals`, or none. A
  // point at a hard edge is thus one vertex with several normals, and faces that meet there stay connected.
  std::vector<std::uint32_t> corner_normals;

  // The materials of this mesh, and for each face the index of its material or `no_material`. There are no indices if
  // no face has a material. Colours of vertices take precedence.
  std::vector<annMaterial> materials;
  std::vector<std::uint32_t> face_materials;

  bool all_triangles() const { return face_starts.empty(); }
  std::size_t face_count() const { return all_triangles() ? corners.size() / 3 : face_starts.size() - 1; }
  std::span<const std::uint32_t> face(std::size_t index) const {
    if (all_triangles()) return {corners.data() + 3 * index, 3};
    return {corners.data() + face_starts[index], face_starts[index + 1] - face_starts[index]};
  }
  std::uint32_t face_material(std::size_t index) const {
    return face_materials.empty() ? no_material : face_materials[index];
  }

  bool has_normals() const { return !corner_normals.empty() || !vertices->normals.empty(); }
  // The normal at a corner, an index into `corners`; null if it has none.
  const annVector* normal(std::size_t corner) const {
    if (corner_normals.empty()) return vertices->normals.empty() ? nullptr : &vertices->normals[corners[corner]];
    return corner_normals[corner] == no_normal ? nullptr : &vertices->normal_pool[corner_normals[corner]];
  }

  // The normal of a face, of length 1; the null vector for a face without area.
  annVector face_normal(std::size_t index) const;

  // The number of triangles after triangulation: corners minus two for each face.
  std::size_t triangle_count() const { return corners.size() - 2 * face_count(); }

  // Adds a face of at least three corners, without a material. The first face that is not a triangle creates
  // `face_starts`.
  void add_face(std::span<const std::uint32_t> face_corners);

  // Sets the material of an existing face. The first one creates `face_materials`.
  void set_face_material(std::size_t index, std::uint32_t material);
};
