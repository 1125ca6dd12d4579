#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "annMesh.h"
#include "threemfProperties.h"

// Collects the mesh of one object. Looks of faces become face materials. Where the corners of any face differ in colour
// the whole mesh gets vertex colours: a vertex that faces show in several colours is there once for each, faces without
// a look make theirs white, and only base materials, which have names, stay face materials as well.
class threemfMeshBuilder {
 public:
  // Looks of a triangle's corners; numbers of `threemfProperties`.
  using Looks = std::array<std::uint32_t, 3>;

  // `default_look` is that of the object, for triangles that name none.
  void begin(std::uint32_t default_look, const threemfProperties& properties);

  // Forgets a mesh that was begun.
  void reset() { mesh_ = nullptr; }
  bool begun() const { return mesh_ != nullptr; }

  void add_vertex(annVector point) { mesh_->vertices->points.push_back(point); }
  std::uint32_t vertex_count() const { return mesh_->vertices->count(); }
  std::size_t triangle_count() const { return mesh_->corners.size() / 3; }
  void add_triangle(const std::array<std::uint32_t, 3>& corners);
  void add_triangle(const std::array<std::uint32_t, 3>& corners, const Looks& looks);

  // The mesh, and the colour of the object as a whole when faces show it that have none of their own.
  std::shared_ptr<const annMesh> finish(std::optional<annColour>& colour);

 private:
  void keep_face_looks();
  void keep_corner_looks();
  void set_face_materials();
  void set_vertex_colours();
  annColour colour_of(std::uint32_t look) const;

  const threemfProperties* properties_ = nullptr;
  std::shared_ptr<annMesh> mesh_;
  std::uint32_t default_look_ = threemfProperties::no_look;
  bool default_used_ = false;
  std::vector<std::uint32_t> face_looks_;    // empty until a face has a look of its own
  std::vector<std::uint32_t> corner_looks_;  // empty until the corners of a face differ
};
