#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "annMesh.h"
#include "threemfProperties.h"

// Collects the mesh of one object. Materials of faces become face materials. If the corners of any face differ in
// colour, the whole mesh gets vertex colours: a vertex is duplicated for each colour that faces give it, and faces
// without a material make it white. Then only base materials, which have names, are face materials as well.
class threemfMeshBuilder {
 public:
  // Materials of a triangle's corners, as indices of `threemfProperties`.
  using Looks = std::array<std::uint32_t, 3>;

  // `default_look` is the object's material, for triangles without one.
  void begin(std::uint32_t default_look, const threemfProperties& properties);

  // Discards the current mesh.
  void reset() { mesh_ = nullptr; }
  bool begun() const { return mesh_ != nullptr; }

  void add_vertex(annVector point) { mesh_->vertices->points.push_back(point); }
  std::uint32_t vertex_count() const { return mesh_->vertices->count(); }
  std::size_t triangle_count() const { return mesh_->corners.size() / 3; }
  void add_triangle(const std::array<std::uint32_t, 3>& corners);
  void add_triangle(const std::array<std::uint32_t, 3>& corners, const Looks& looks);

  // Returns the mesh. `colour` receives the colour of the object if faces without a material use it.
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
  std::vector<std::uint32_t> face_looks_;    // empty until a face has a material
  std::vector<std::uint32_t> corner_looks_;  // empty until the corners of a face differ
};
