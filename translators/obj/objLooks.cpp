#include "objLooks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "vltRenames.h"
#include "vltTextOutput.h"
#include "vltWords.h"

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
constexpr annColour plain_colour{0.8F, 0.8F, 0.8F, 1};

std::string name_of_colour(const annColour& colour) {
  auto byte = [](float value) { return static_cast<unsigned>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255)); };
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "colour_%02x%02x%02x", byte(colour.red), byte(colour.green),
                byte(colour.blue));
  return text.data();
}

std::string one_word(const annMaterial& material) {
  std::string name = vlt_one_line(material.name);
  for (char& c : name) {
    if (vlt_is_blank(c) || c == '#' || c == '\\') c = '_';
  }
  return name.empty() ? name_of_colour(material.colour) : name;
}

// Name and colour as one key; a name has no line break.
std::string key_of(const std::string& name, const annColour& colour) {
  std::array<float, 4> parts{colour.red, colour.green, colour.blue, colour.opacity};
  for (float& part : parts) part += 0.0F;  // turns -0 into 0, so that equal numbers have equal bytes
  std::string key = name + '\n';
  return key.append(reinterpret_cast<const char*>(parts.data()), sizeof parts);
}

}  // namespace

objLooks::objLooks(const std::vector<vltPlacedMesh>& bodies) : plain_(none) {
  bool any_without = false;
  for (const vltPlacedMesh& body : bodies) {
    for (std::size_t face = 0; face < body.mesh->face_count(); ++face) {
      const bool without = number_of(body, face) == none;
      any_without = any_without || (without && !looks_.empty());
      if (body.mesh->face_materials.empty()) break;  // all faces have the same material
    }
  }
  if (!any_without) return;
  plain_ = look_of({"plain", plain_colour});
  looks_[plain_].own_name = {};
}

std::size_t objLooks::number_of(const vltPlacedMesh& body, std::size_t face) {
  const std::uint32_t material = body.mesh->face_material(face);
  if (material == annMesh::no_material) return body.colour ? look_of({{}, *body.colour}) : none;
  std::vector<std::size_t>& known = of_mesh_[body.mesh.get()];
  known.resize(body.mesh->materials.size(), none);
  if (known[material] == none) known[material] = look_of(body.mesh->materials[material]);
  return known[material];
}

std::size_t objLooks::look_of(const annMaterial& material) {
  const std::string name = one_word(material);
  const auto [known, is_new] = by_name_and_colour_.try_emplace(key_of(name, material.colour), looks_.size());
  if (is_new) looks_.push_back({names_.unique(name), material.colour, material.name});
  return known->second;
}

void objLooks::tell_renamed(velabsOutput& output) const {
  vltRenames renames;
  for (const Look& look : looks_) renames.take(look.own_name.view(), look.name);
  renames.tell("OBJ names materials by one word each, that no other has", output);
}

const std::string& objLooks::name_for(const vltPlacedMesh& body, std::size_t face) {
  static const std::string nothing;
  std::size_t number = number_of(body, face);
  if (number == none && coloured_) number = plain_;
  if (number == none) return nothing;
  coloured_ = true;
  return looks_[number].name;
}

void objLooks::write(velabsOfStream& stream) const {
  vltTextOutput text(stream, 0);
  for (const Look& look : looks_) {
    text.text("newmtl ");
    text.text(look.name);
    text.text("\nKd");
    for (float value : {look.colour.red, look.colour.green, look.colour.blue}) {
      text.text(" ");
      text.number(value);
    }
    text.text("\n");
    if (look.colour.opacity == 1) continue;
    text.text("d ");
    text.number(look.colour.opacity);
    text.text("\n");
  }
}
