#include "threemfMeshBuilder.h"

#include <unordered_map>

namespace {

constexpr std::uint32_t no_look = threemfProperties::no_look;
// Placeholder for the object's material. Whether it becomes a face material is only known when the mesh is complete.
constexpr std::uint32_t as_object = no_look - 1;

}  // namespace

void threemfMeshBuilder::begin(std::uint32_t default_look, const threemfProperties& properties) {
  properties_ = &properties;
  mesh_ = std::make_shared<annMesh>();
  default_look_ = default_look;
  default_used_ = false;
  face_looks_.clear();
  corner_looks_.clear();
}

void threemfMeshBuilder::add_triangle(const std::array<std::uint32_t, 3>& corners) {
  mesh_->corners.insert(mesh_->corners.end(), corners.begin(), corners.end());
  default_used_ = true;
  if (!face_looks_.empty()) face_looks_.push_back(as_object);
  if (!corner_looks_.empty()) corner_looks_.insert(corner_looks_.end(), 3, as_object);
}

void threemfMeshBuilder::add_triangle(const std::array<std::uint32_t, 3>& corners, const Looks& looks) {
  if (face_looks_.empty()) keep_face_looks();
  const bool differ = looks[0] != looks[1] || looks[0] != looks[2];
  if (differ && corner_looks_.empty()) keep_corner_looks();
  mesh_->corners.insert(mesh_->corners.end(), corners.begin(), corners.end());
  face_looks_.push_back(looks[0]);
  if (differ || !corner_looks_.empty()) corner_looks_.insert(corner_looks_.end(), looks.begin(), looks.end());
}

void threemfMeshBuilder::keep_face_looks() {
  face_looks_.reserve(mesh_->corners.capacity() / 3 + 1);
  face_looks_.assign(triangle_count(), as_object);
}

void threemfMeshBuilder::keep_corner_looks() {
  corner_looks_.reserve(mesh_->corners.capacity() + 3);
  for (std::uint32_t look : face_looks_) corner_looks_.insert(corner_looks_.end(), 3, look);
}

std::shared_ptr<const annMesh> threemfMeshBuilder::finish(std::optional<annColour>& colour) {
  const bool named = default_look_ != no_look && !properties_->looks()[default_look_].name.empty();
  // A base material has a name, so it becomes a face material; a plain colour becomes that of the object.
  if (named && face_looks_.empty() && triangle_count() > 0) keep_face_looks();
  const std::uint32_t shown = named || !corner_looks_.empty() ? default_look_ : no_look;
  for (auto* looks : {&face_looks_, &corner_looks_}) {
    for (std::uint32_t& look : *looks) {
      if (look == as_object) look = shown;
    }
  }
  colour.reset();
  if (!corner_looks_.empty()) {
    set_vertex_colours();
  } else if (default_look_ != no_look && !named && default_used_) {
    colour = properties_->looks()[default_look_].colour;
  }
  set_face_materials();
  return std::move(mesh_);
}

void threemfMeshBuilder::set_face_materials() {
  std::unordered_map<std::uint32_t, std::uint32_t> numbers;
  std::uint32_t last_look = no_look, last_number = annMesh::no_material;
  for (std::size_t face = 0; face < face_looks_.size(); ++face) {
    const std::uint32_t look = face_looks_[face];
    if (look == no_look) continue;
    if (look != last_look) {
      const annMaterial& material = properties_->looks()[look];
      last_look = look;
      last_number = annMesh::no_material;
      if (corner_looks_.empty() || !material.name.empty()) {
        const auto [number, added] = numbers.try_emplace(look, static_cast<std::uint32_t>(mesh_->materials.size()));
        if (added) mesh_->materials.push_back(material);
        last_number = number->second;
      }
    }
    if (last_number != annMesh::no_material) mesh_->set_face_material(face, last_number);
  }
}

annColour threemfMeshBuilder::colour_of(std::uint32_t look) const {
  return look == no_look ? annColour{1, 1, 1, 1} : properties_->looks()[look].colour;
}

void threemfMeshBuilder::set_vertex_colours() {
  annVertices& vertices = *mesh_->vertices;
  constexpr std::uint32_t unseen = as_object;
  std::vector<std::uint32_t> first_look(vertices.points.size(), unseen);
  std::unordered_map<std::uint64_t, std::uint32_t> others;
  vertices.colours.assign(vertices.points.size(), colour_of(no_look));
  for (std::size_t i = 0; i < mesh_->corners.size(); ++i) {
    std::uint32_t& vertex = mesh_->corners[i];
    const std::uint32_t look = corner_looks_[i];
    if (first_look[vertex] == unseen) {
      first_look[vertex] = look;
      vertices.colours[vertex] = colour_of(look);
    } else if (first_look[vertex] != look) {
      const auto [other, added] = others.try_emplace(std::uint64_t{vertex} << 32 | look, vertices.count());
      if (added) {
        const annVector point = vertices.points[vertex];
        vertices.points.push_back(point);
        vertices.colours.push_back(colour_of(look));
      }
      vertex = other->second;
    }
  }
}
