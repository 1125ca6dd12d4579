#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "annMesh.h"

// A colour as in files: a byte each for red, green, blue and opacity, with red in the highest byte.
std::uint32_t threemf_packed(const annColour& colour);

// The materials of a model as two property groups: base materials for those with a name, and colours for those
// without, for vertices and for whole parts. Each distinct one is stored once, in the order of first use.
class threemfColours {
 public:
  static constexpr std::uint32_t material_group = 1;
  static constexpr std::uint32_t colour_group = 2;
  static constexpr std::uint32_t first_free_id = 3;
  // The colour of faces without a material when others have one: 3MF then requires one for all faces.
  static constexpr annColour default_colour{1, 1, 1, 1};

  struct Property {
    std::uint32_t group;
    std::uint32_t index;
  };

  threemfColours(bool of_faces, bool of_vertices) : of_faces_(of_faces), of_vertices_(of_vertices) {}

  bool shows_faces(const annMesh& mesh) const { return of_faces_ && !mesh.face_materials.empty(); }
  bool shows_vertices(const annMesh& mesh) const { return of_vertices_ && !mesh.vertices->colours.empty(); }
  // The material to write for a face, or `no_material`. If vertices have colours, a material is only written when
  // their colours are the same, to keep its name.
  std::uint32_t shown_material(const annMesh& mesh, std::size_t face) const;
  // The colour to write for a whole mesh, given the colour of its node; empty when its vertices have colours.
  std::optional<annColour> of_whole(const annMesh& mesh, const std::optional<annColour>& colour) const;

  // Adds the materials and colours that the mesh uses.
  void collect(const annMesh& mesh, const std::optional<annColour>& whole);

  // True when the material of some face is not written because its vertices have other colours.
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
