#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "annMaterial.h"
#include "annVertices.h"
#include "apExport.h"

// Faces of any corner count over vertices that other meshes of the document may share. The corners of a face run
// counter-clockwise as seen from outside.
struct VELPLATFORM_API annMesh {
  static constexpr std::uint32_t no_material = std::numeric_limits<std::uint32_t>::max();
  static constexpr std::uint32_t no_normal = std::numeric_limits<std::uint32_t>::max();

  // Never null. A mesh need not use all of them.
  std::shared_ptr<annVertices> vertices = std::make_shared<annVertices>();

  // Vertex numbers, face after face.
  std::vector<std::uint32_t> corners;

  // Where in `corners` each face begins, and the end: one more than there are faces. Empty when all faces are
  // triangles.
  std::vector<std::uint32_t> face_starts;

  // For each corner the index of its normal in `vertices->normal_pool`, or `no_normal`; in step with `corners`. Empty
  // when the corners have the normals of their vertices, `vertices->normals`, or none. So a point at a hard edge is one
  // vertex with several normals, and faces that meet there stay joined.
  std::vector<std::uint32_t> corner_normals;

  // The looks that faces of this mesh may have, and for each face the number of its own or `no_material`; no numbers at
  // all when no face has one. Where the vertices have colours, those are seen instead.
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
  // The normal at a corner, an index into `corners`; null where it has none.
  const annVector* normal(std::size_t corner) const {
    if (corner_normals.empty()) return vertices->normals.empty() ? nullptr : &vertices->normals[corners[corner]];
    return corner_normals[corner] == no_normal ? nullptr : &vertices->normal_pool[corner_normals[corner]];
  }

  // The direction in which a face looks, of length 1; the null vector for a face without area.
  annVector face_normal(std::size_t index) const;

  // Triangles that the faces come to: corners less two for each face.
  std::size_t triangle_count() const { return corners.size() - 2 * face_count(); }

  // Adds a face of at least three corners, without a look; the first one that is no triangle makes `face_starts`.
  void add_face(std::span<const std::uint32_t> face_corners);

  // Gives a face that was added its look; the first one makes `face_materials`.
  void set_face_material(std::size_t index, std::uint32_t material);
};
