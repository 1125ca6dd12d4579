#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "annMesh.h"

// A colour as files hold it, a byte for each of red, green, blue and opacity, red in the highest one.
std::uint32_t threemf_packed(const annColour& colour);

// The looks of a model as two groups of properties: base materials for those that have a name, colours for the others,
// for vertices and for parts as a whole; each distinct one once, in the order of first use.
class threemfColours {
 public:
  static constexpr std::uint32_t material_group = 1;
  static constexpr std::uint32_t colour_group = 2;
  static constexpr std::uint32_t first_free_id = 3;
  // Of faces without a look beside others that have one: 3MF wants a look for all faces then.
  static constexpr annColour default_colour{1, 1, 1, 1};

  struct Property {
    std::uint32_t group;
    std::uint32_t index;
  };

  threemfColours(bool of_faces, bool of_vertices) : of_faces_(of_faces), of_vertices_(of_vertices) {}

  bool shows_faces(const annMesh& mesh) const { return of_faces_ && !mesh.face_materials.empty(); }
  bool shows_vertices(const annMesh& mesh) const { return of_vertices_ && !mesh.vertices->colours.empty(); }
  // The material that a face is written with, or `no_material`: where vertices have colours, one that is of the same
  // colour and gives it a name.
  std::uint32_t shown_material(const annMesh& mesh, std::size_t face) const;
  // The colour that a mesh is written with as a whole, given what its place has; nothing when vertices have theirs.
  std::optional<annColour> of_whole(const annMesh& mesh, const std::optional<annColour>& colour) const;

  // Takes in what the mesh shows.
  void collect(const annMesh& mesh, const std::optional<annColour>& whole);

  // Some face was taken in whose material is not written, because its vertices have other colours.
  bool hides_materials() const { return hides_materials_; }

  Property property(const annMaterial& material) const;
  // The index in the colour group.
  std::uint32_t index_of(const annColour& colour) const { return colour_numbers_.at(threemf_packed(colour)); }

  const std::vector<annMaterial>& materials() const { return materials_; }
  const std::vector<std::uint32_t>& colours() const { return colours_; }

 private:
  void add(const annColour& colour);
  void add(const annMaterial& material);

  bool of_faces_;
  bool of_vertices_;
  bool hides_materials_ = false;
  std::vector<annMaterial> materials_;
  std::unordered_map<std::string, std::uint32_t> material_numbers_;  // by colour and name
  std::vector<std::uint32_t> colours_;
  std::unordered_map<std::uint32_t, std::uint32_t> colour_numbers_;
  std::unordered_set<const annVertices*> vertices_seen_;
};
