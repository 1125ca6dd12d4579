#include "threemfColours.h"

#include <algorithm>

namespace {

std::uint32_t byte(float value) {
  return static_cast<std::uint32_t>(std::clamp(value, 0.0F, 1.0F) * 255.0F + 0.5F);
}

std::string key(const annMaterial& material) {
  return std::to_string(threemf_packed(material.colour)) + ' ' + material.name.str();
}

}  // namespace

std::uint32_t threemf_packed(const annColour& colour) {
  return byte(colour.red) << 24 | byte(colour.green) << 16 | byte(colour.blue) << 8 | byte(colour.opacity);
}

std::optional<annColour> threemfColours::of_whole(const annMesh& mesh, const std::optional<annColour>& colour) const {
  return of_faces_ && !shows_vertices(mesh) ? colour : std::nullopt;
}

std::uint32_t threemfColours::shown_material(const annMesh& mesh, std::size_t face) const {
  if (!of_faces_) return annMesh::no_material;
  const std::uint32_t material = mesh.face_material(face);
  if (material == annMesh::no_material || !shows_vertices(mesh)) return material;
  const std::uint32_t colour = threemf_packed(mesh.materials[material].colour);
  const auto corners = mesh.face(face);
  const bool same = std::all_of(corners.begin(), corners.end(), [&](std::uint32_t corner) {
    return threemf_packed(mesh.vertices->colours[corner]) == colour;
  });
  return same ? material : annMesh::no_material;
}

void threemfColours::collect(const annMesh& mesh, const std::optional<annColour>& whole) {
  if (whole) add(*whole);
  if (shows_faces(mesh)) {
    std::vector<bool> seen(mesh.materials.size());
    for (std::size_t face = 0; face < mesh.face_count(); ++face) {
      const std::uint32_t material = shown_material(mesh, face);
      hides_materials_ = hides_materials_ || material != mesh.face_material(face);
      if (material == annMesh::no_material) {
        if (!whole && !shows_vertices(mesh)) add(default_colour);
        continue;
      }
      if (seen[material]) continue;
      seen[material] = true;
      add(mesh.materials[material]);
    }
  }
  if (shows_vertices(mesh) && vertices_seen_.insert(mesh.vertices.get()).second) {
    for (const annColour& colour : mesh.vertices->colours) add(colour);
  }
}

void threemfColours::add(const annColour& colour) {
  const std::uint32_t packed = threemf_packed(colour);
  if (colour_numbers_.try_emplace(packed, static_cast<std::uint32_t>(colours_.size())).second) {
    colours_.push_back(packed);
  }
}

void threemfColours::add(const annMaterial& material) {
  if (material.name.empty()) return add(material.colour);
  if (material_numbers_.try_emplace(key(material), static_cast<std::uint32_t>(materials_.size())).second) {
    materials_.push_back(material);
  }
}

threemfColours::Property threemfColours::property(const annMaterial& material) const {
  if (material.name.empty()) return {colour_group, index_of(material.colour)};
  return {material_group, material_numbers_.at(key(material))};
}
