#include "threemfModelText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "threemfFormat.h"
#include "threemfText.h"

namespace {

// The maximum length of a line without its names.
constexpr std::uint64_t line_bound = 160;
constexpr std::uint64_t placed_object_bound = 600;

std::string hex_colour(std::uint32_t packed) {
  constexpr char digits[] = "0123456789ABCDEF";
  std::string text = "#";
  for (int shift = 28; shift >= 0; shift -= 4) text += digits[packed >> shift & 15];
  if (text.ends_with("FF")) text.resize(7);
  return text;
}

char* put(char* to, std::string_view text) {
  std::memcpy(to, text.data(), text.size());
  return to + text.size();
}

char* put(char* to, std::uint32_t number) {
  return std::to_chars(to, to + threemf_number_room, number).ptr;
}

// The material that all faces have, if it has a name. It is then written at the object.
std::optional<std::uint32_t> only_material(const annMesh& mesh) {
  const std::uint32_t first = mesh.face_materials.front();
  if (first == annMesh::no_material || mesh.materials[first].name.empty()) return std::nullopt;
  const bool only = std::all_of(mesh.face_materials.begin(), mesh.face_materials.end(),
                                [&](std::uint32_t material) { return material == first; });
  return only ? std::optional(first) : std::nullopt;
}

}  // namespace

threemfModelText::threemfModelText(const threemfObjects& objects, const threemfColours& colours, const Form& form)
    : objects_(objects), colours_(colours), form_(form) {
  constexpr std::uint64_t longest_character = 6;  // "&quot;"
  std::uint64_t lines = 64 + colours.colours().size() + colours.materials().size();
  std::uint64_t texts = 0, placed = objects.items().size();
  for (const annMaterial& material : colours.materials()) texts += material.name.length();
  for (const threemfMeshObject& mesh : objects.meshes()) {
    const std::size_t elements = mesh.joined->mesh.vertices->points.size() + mesh.joined->mesh.face_count();
    work_ += elements;
    lines += 16 + elements;
    texts += mesh.name->length();
  }
  for (const threemfAssemblyObject& assembly : objects.assemblies()) {
    lines += 4;
    placed += assembly.components.size();
    for (const threemfPlacedObject& component : assembly.components) texts += component.instance_name.size();
    texts += assembly.name->length();
  }
  for (const threemfPlacedObject& item : objects.items()) texts += item.instance_name.size();
  size_bound_ = lines * line_bound + texts * longest_character + placed * placed_object_bound;
}

std::string_view threemfModelText::next() {
  block_.clear();
  while (step_ != END && !full() && !overflow_) {
    switch (step_) {
      case HEAD:
        head();
        break;
      case OBJECT:
        begin_mesh();
        break;
      case VERTICES:
        vertices();
        break;
      case TRIANGLES:
        triangles();
        break;
      case ASSEMBLIES:
        assemblies();
        break;
      case BUILD:
        build();
        break;
      case END:
        break;
    }
  }
  return overflow_ ? std::string_view() : block_;
}

void threemfModelText::head() {
  block_ += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<model unit=\"";
  block_ += form_.unit;
  block_ += "\" xml:lang=\"en-US\" xmlns=\"" THREEMF_CORE "\"";
  if (!colours_.colours().empty()) block_ += " xmlns:m=\"" THREEMF_MATERIALS "\"";
  if (objects_.has_instance_names()) block_ += " xmlns:i=\"" THREEMF_INSTANCE "\"";
  block_ += ">\n<resources>\n";
  groups();
  step_ = objects_.meshes().empty() ? ASSEMBLIES : OBJECT;
}

void threemfModelText::groups() {
  if (!colours_.materials().empty()) {
    block_ += "<basematerials id=\"" + std::to_string(threemfColours::material_group) + "\">\n";
    for (const annMaterial& material : colours_.materials()) {
      block_ += "<base name=\"" + threemf_attribute_text(material.name.view(), replaced_) + "\" displaycolor=\"" +
                hex_colour(threemf_packed(material.colour)) + "\"/>\n";
    }
    block_ += "</basematerials>\n";
  }
  if (colours_.colours().empty()) return;
  block_ += "<m:colorgroup id=\"" + std::to_string(threemfColours::colour_group) + "\">\n";
  for (std::uint32_t colour : colours_.colours()) block_ += "<m:color color=\"" + hex_colour(colour) + "\"/>\n";
  block_ += "</m:colorgroup>\n";
}

void threemfModelText::begin_mesh() {
  mesh_ = &objects_.meshes()[object_];
  choose_looks();
  block_ += "<object id=\"" + std::to_string(mesh_->id) + "\" type=\"model\"";
  name(*mesh_->name);
  if (const auto whole = property_of_object()) {
    block_ += " pid=\"" + std::to_string(whole->group) + "\" pindex=\"" + std::to_string(whole->index) + "\"";
  }
  block_ += ">\n<mesh>\n<vertices>\n";
  at_ = 0;
  step_ = VERTICES;
}

// If faces have materials, the object needs one too, for faces without. If there are none, any material may be used.
std::optional<threemfColours::Property> threemfModelText::property_of_object() {
  const annMesh& mesh = *mesh_->mesh;
  const bool faces_shown = colours_.shows_faces(mesh);
  if (const auto only = faces_shown && !coloured_vertices_ ? only_material(mesh) : std::nullopt) {
    looks_[*only].clear();
    return colours_.property(mesh.materials[*only]);
  }
  if (mesh_->colour) return threemfColours::Property{threemfColours::colour_group, colours_.index_of(*mesh_->colour)};
  if (coloured_vertices_) {
    return threemfColours::Property{threemfColours::colour_group, vertex_colour(mesh.corners.front())};
  }
  const auto& looks = mesh.face_materials;
  if (!faces_shown) return std::nullopt;
  if (std::find(looks.begin(), looks.end(), annMesh::no_material) != looks.end()) {
    return threemfColours::Property{threemfColours::colour_group, colours_.index_of(threemfColours::default_colour)};
  }
  return colours_.property(mesh.materials[looks.front()]);
}

void threemfModelText::choose_looks() {
  const annMesh& mesh = *mesh_->mesh;
  looks_.assign(mesh.materials.size(), {});
  if (colours_.shows_faces(mesh)) {
    std::vector<bool> used(mesh.materials.size());
    for (std::size_t face = 0; face < mesh.face_count(); ++face) {
      const std::uint32_t material = colours_.shown_material(mesh, face);
      if (material == annMesh::no_material || used[material]) continue;
      used[material] = true;
      const threemfColours::Property look = colours_.property(mesh.materials[material]);
      looks_[material] = " pid=\"" + std::to_string(look.group) + "\" p1=\"" + std::to_string(look.index) + "\"";
    }
  }
  coloured_vertices_ = colours_.shows_vertices(mesh);
}

std::uint32_t threemfModelText::vertex_colour(std::uint32_t vertex) const {
  return colours_.index_of(mesh_->mesh->vertices->colours[vertex]);
}

void threemfModelText::vertices() {
  const std::vector<annVector>& points = mesh_->joined->mesh.vertices->points;
  for (; at_ < points.size() && !full(); ++at_, ++work_done_) {
    const annVector& point = points[at_];
    const double values[] = {mesh_->turned ? 0 - point.x : point.x, point.y, point.z};
    constexpr std::string_view names[] = {"<vertex x=\"", "\" y=\"", "\" z=\""};
    char line[4 * threemf_number_room];
    char* end = line;
    for (std::size_t i = 0; i < 3; ++i) end = threemf_write_number(put(end, names[i]), values[i], form_.digits);
    block_.append(line, put(end, "\"/>\n"));
  }
  if (at_ < points.size()) return;
  block_ += "</vertices>\n<triangles>\n";
  at_ = 0;
  step_ = TRIANGLES;
}

void threemfModelText::triangles() {
  const std::size_t count = mesh_->joined->mesh.face_count();
  for (; at_ < count && !full(); ++at_, ++work_done_) triangle(at_);
  if (at_ < count) return;
  block_ += "</triangles>\n</mesh>\n</object>\n";
  ++object_;
  step_ = OBJECT;
  if (object_ < objects_.meshes().size()) return;
  object_ = 0;
  step_ = ASSEMBLIES;
}

void threemfModelText::triangle(std::size_t number) {
  const threemfJoinedMesh& joined = *mesh_->joined;
  const std::size_t corners[] = {3 * number, 3 * number + (mesh_->turned ? 2 : 1),
                                 3 * number + (mesh_->turned ? 1 : 2)};
  constexpr std::string_view vertex[] = {"<triangle v1=\"", "\" v2=\"", "\" v3=\""};
  constexpr std::string_view colour[] = {"\" pid=\"2\" p1=\"", "\" p2=\"", "\" p3=\""};
  static_assert(threemfColours::colour_group == 2);
  char line[8 * threemf_number_room];
  char* end = line;
  for (std::size_t i = 0; i < 3; ++i) end = put(put(end, vertex[i]), joined.mesh.corners[corners[i]]);
  const std::uint32_t material =
      joined.faces.empty() ? annMesh::no_material : colours_.shown_material(*mesh_->mesh, joined.faces[number]);
  const bool own_look = material != annMesh::no_material;
  if (!own_look && coloured_vertices_) {
    for (std::size_t i = 0; i < 3; ++i) {
      end = put(put(end, colour[i]), vertex_colour(joined.source_vertices[corners[i]]));
    }
  }
  end = put(end, "\"");
  if (own_look) end = put(end, looks_[material]);
  block_.append(line, put(end, "/>\n"));
}

void threemfModelText::assemblies() {
  for (; object_ < objects_.assemblies().size() && !full(); ++object_) {
    const threemfAssemblyObject& assembly = objects_.assemblies()[object_];
    block_ += "<object id=\"" + std::to_string(assembly.id) + "\" type=\"model\"";
    name(*assembly.name);
    block_ += ">\n<components>\n";
    for (const threemfPlacedObject& component : assembly.components) use("component", component);
    block_ += "</components>\n</object>\n";
  }
  if (object_ < objects_.assemblies().size()) return;
  block_ += "</resources>\n<build>\n";
  object_ = 0;
  step_ = BUILD;
}

void threemfModelText::build() {
  for (; object_ < objects_.items().size() && !full(); ++object_) use("item", objects_.items()[object_]);
  if (object_ < objects_.items().size()) return;
  block_ += "</build>\n</model>\n";
  step_ = END;
}

void threemfModelText::use(std::string_view element, const threemfPlacedObject& placed) {
  block_ += "<";
  block_ += element;
  block_ += " objectid=\"" + std::to_string(placed.id) + "\"";
  if (!placed.transform.is_identity()) {
    for (std::size_t i = 3; i < 12; i += 4) overflow_ |= !std::isfinite(placed.transform.m[i] * form_.factor);
    block_ += " transform=\"" + threemf_transform_text(placed.transform, form_.factor) + "\"";
  }
  if (!placed.instance_name.empty()) {
    block_ += " i:name=\"" + threemf_attribute_text(placed.instance_name, replaced_) + "\"";
  }
  block_ += "/>\n";
}

void threemfModelText::name(const utString& name) {
  if (!name.empty()) block_ += " name=\"" + threemf_attribute_text(name.view(), replaced_) + "\"";
}
