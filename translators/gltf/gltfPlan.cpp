#include "gltfPlan.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "annOpenEdges.h"
#include "annVertexSplitting.h"
#include "vltFlag.h"
#include "vltLosses.h"
#include "vltRounding.h"
#include "vltUp.h"

namespace {

std::array<float, 4> numbers_of(const annColour& colour) {
  return {colour.red, colour.green, colour.blue, colour.opacity};
}

}  // namespace

std::size_t gltfPlan::Accessor::size() const {
  return count * components * (type == gltfUINT16 ? 2 : 4);
}

gltfPlanner::gltfPlanner(const annDocument& document, const velTableInstance& resources, velabsOutput& output)
    : document_(document),
      resources_(resources),
      output_(output),
      facets_(document, resources, output),
      materials_(vlt_flag(resources, "WRITE_MATERIALS")),
      normals_(vlt_flag(resources, "WRITE_NORMALS")),
      colours_(vlt_flag(resources, "WRITE_VERTEX_COLOURS")) {}

std::optional<gltfPlan> gltfPlanner::plan(double factor) {
  plan_.factor = factor;
  const std::optional<annTransform> turn = vlt_written_turn(annUP_Y, resources_, document_, output_);
  if (!turn) return std::nullopt;
  std::optional<std::size_t> top;
  if (!turn->is_identity()) {
    top = 0;
    plan_.roots.push_back(0);
    plan_.nodes.push_back({nullptr, *turn, std::nullopt, {}});
  }
  if (normals_ && !split_vertices()) return std::nullopt;
  struct Open {
    const annNode* node;
    std::optional<std::size_t> parent;
    std::optional<annColour> colour;
  };
  std::vector<Open> open;
  auto add_children = [&](const annNode& node, std::optional<std::size_t> parent, std::optional<annColour> colour) {
    for (auto child = node.children.rbegin(); child != node.children.rend(); ++child) {
      open.push_back({child->get(), parent, (*child)->colour ? (*child)->colour : colour});
    }
  };
  const annNode& root = document_.root;
  if (root.body.empty() && root.transform.is_identity()) {
    add_children(root, top, root.colour);
  } else {
    open.push_back({&root, top, root.colour});
  }
  while (!open.empty()) {
    const Open current = open.back();
    open.pop_back();
    const std::size_t index = plan_.nodes.size();
    if (!add_node(*current.node, current.parent, current.colour)) return std::nullopt;
    add_children(*current.node, index, current.colour);
  }
  if (bodies_.empty()) {
    fail("the model holds no shape");
    return std::nullopt;
  }
  if (!vlt_has_faces(bodies_, "glTF", output_)) return std::nullopt;
  const vltCarries carries{.format = "glTF",
                           .parts = true,
                           .tree = true,
                           .colours = true,
                           .material_names = true,
                           .vertex_normals = true,
                           .vertex_colours = true};
  vlt_tell_losses(document_, bodies_, carries, resources_, output_);
  vlt_tell_rounding(bodies_, "glTF", "another format, OBJ for instance,", output_);
  if (hides_looks_) {
    output_.message(velabsNOTE,
                    "glTF multiplies the colours of materials and vertices: where vertices have one, the "
                    "material's is left out");
  }
  if (hides_names_) {
    output_.message(velabsNOTE,
                    "glTF names an assembly once: where its instance has a name, that of the assembly is left out");
  }
  if (without_faces_ > 0) {
    output_.message(velabsNOTE, "glTF holds no meshes without faces: their parts are written as empty nodes");
  }
  return std::move(plan_);
}

bool gltfPlanner::split_vertices() {
  std::vector<std::shared_ptr<const annMesh>> own, split;
  for (const annPlacedBody& placed : ann_placed_bodies(document_)) {
    own.push_back(facets_.of(*placed.node));
    if (!own.back()) return false;
  }
  split = own;
  ann_split_vertices(split);
  for (std::size_t i = 0; i < own.size(); ++i) {
    if (split[i] != own[i]) split_[own[i].get()] = std::move(split[i]);
  }
  return true;
}

bool gltfPlanner::add_node(const annNode& node, std::optional<std::size_t> parent, std::optional<annColour> colour) {
  gltfPlan::Node planned{&node, node.transform, std::nullopt, {}};
  for (std::size_t row = 0; row < 3; ++row) planned.placement.m[4 * row + 3] *= plan_.factor;
  for (double number : planned.placement.m) {
    if (!std::isfinite(number)) return fail("the placement of \"" + node.label().str() + "\" is too large");
  }
  if (!node.body.empty()) {
    const std::shared_ptr<const annMesh> mesh = facets_.of(node);
    if (!mesh) return false;
    bodies_.push_back({&node, mesh, annTransform::scaling(plan_.factor), colour});
    if (mesh->corners.empty()) {
      ++without_faces_;
    } else if (std::size_t index = 0; add_mesh(mesh, colour, index)) {
      planned.mesh = index;
      std::optional<utString>& name = plan_.meshes[index].name;
      name = !name || *name == node.name ? node.name : utString();
    } else {
      return fail("\"" + node.label().str() + "\": a coordinate is too large for the numbers of glTF");
    }
  }
  hides_names_ = hides_names_ || (!planned.mesh && !node.name.empty() && node.label() != node.name);
  const std::size_t index = plan_.nodes.size();
  (parent ? plan_.nodes[*parent].children : plan_.roots).push_back(index);
  plan_.nodes.push_back(std::move(planned));
  return true;
}

bool gltfPlanner::add_mesh(const std::shared_ptr<const annMesh>& mesh, std::optional<annColour> colour,
                           std::size_t& index) {
  const bool has_vertex_colours = colours_ && !mesh->vertices->colours.empty();
  if (!materials_ || has_vertex_colours || !has_faces_without_look(*mesh)) colour = std::nullopt;
  const Look look{mesh.get(), colour ? std::optional(numbers_of(*colour)) : std::nullopt};
  const auto [known, is_new] = meshes_.try_emplace(look, plan_.meshes.size());
  index = known->second;
  if (!is_new) return true;
  const auto split = split_.find(mesh.get());
  gltfPlan::Mesh planned{split == split_.end() ? mesh : split->second, std::nullopt, 0, false, {}, {}};
  const std::size_t pools = plan_.pools.size();
  if (!add_pool(*planned.mesh->vertices, planned.pool)) return false;
  planned.first_of_pool = planned.pool == pools;
  add_groups(planned, colour, materials_ && is_open(*mesh));
  plan_.meshes.push_back(std::move(planned));
  return true;
}

void gltfPlanner::add_groups(gltfPlan::Mesh& planned, const std::optional<annColour>& colour, bool double_sided) {
  constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
  const annMesh& mesh = *planned.mesh;
  planned.group_of_material.assign(mesh.materials.size() + 1, none);
  std::vector<std::size_t> triangles;

  const std::optional<std::size_t> colours = plan_.pools[planned.pool].colours;
  const bool blends = colours && plan_.accessors[*colours].components == 4;
  // Viewers multiply the colours of material and vertex, so the material is white to keep the vertex colours.
  auto written = [&](const annMaterial& look) -> std::optional<annMaterial> {
    constexpr annColour white{1, 1, 1, 1};
    if (!colours) return look;
    hides_looks_ = hides_looks_ || look.colour != white;
    return look.name.empty() ? std::nullopt : std::optional(annMaterial{look.name, white});
  };

  // Two materials of the mesh may become the same material in the file.
  std::map<std::optional<std::size_t>, std::size_t> known;
  auto group_for = [&](std::size_t slot) {
    std::optional<annMaterial> look;
    if (materials_ && slot < mesh.materials.size()) {
      look = written(mesh.materials[slot]);
    } else if (colour) {
      look = annMaterial{{}, *colour};
    }
    std::optional<std::size_t> material;
    if (look || blends || double_sided) material = material_number(look, blends, double_sided);
    const auto [group, is_new] = known.try_emplace(material, planned.groups.size());
    if (is_new) {
      planned.groups.push_back({material});
      triangles.push_back(0);
    }
    return group->second;
  };
  const std::size_t faces = mesh.face_count();
  for (std::size_t face = 0; face < faces; ++face) {
    const std::size_t slot = std::min<std::size_t>(mesh.face_material(face), mesh.materials.size());
    std::size_t& group = planned.group_of_material[slot];
    if (group == none) group = group_for(slot);
    triangles[group] += mesh.all_triangles() ? 1 : mesh.face(face).size() - 2;
  }

  // The maximum of a type is not a valid index.
  const bool is_small = mesh.vertices->points.size() <= std::numeric_limits<std::uint16_t>::max();
  for (std::size_t group = 0; group < planned.groups.size(); ++group) {
    planned.groups[group].indices = add_accessor(3 * triangles[group], 1, is_small ? gltfUINT16 : gltfUINT32);
  }
}

bool gltfPlanner::add_pool(const annVertices& vertices, std::size_t& index) {
  const auto [known, is_new] = pools_.try_emplace(&vertices, plan_.pools.size());
  index = known->second;
  if (!is_new) return true;
  gltfPlan::Pool pool{&vertices};
  if (!add_positions(vertices, pool.positions)) return false;
  const std::size_t count = vertices.points.size();
  if (normals_ && !vertices.normals.empty()) pool.normals = add_accessor(count, 3, gltfFLOAT);
  if (colours_ && !vertices.colours.empty()) {
    const bool opaque = std::all_of(vertices.colours.begin(), vertices.colours.end(),
                                    [](const annColour& colour) { return colour.opacity == 1; });
    pool.colours = add_accessor(count, opaque ? 3 : 4, gltfFLOAT);
  }
  plan_.pools.push_back(pool);
  return true;
}

bool gltfPlanner::add_positions(const annVertices& vertices, std::size_t& index) {
  annVector min = vertices.points.front(), max = min;
  for (const annVector& p : vertices.points) {
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
  }
  // Scaling and rounding are monotonic, so the rounded range is that of the rounded points.
  std::array<std::array<float, 3>, 2> range{};
  const double ends[2][3] = {{min.x, min.y, min.z}, {max.x, max.y, max.z}};
  for (std::size_t end = 0; end < 2; ++end) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const double number = ends[end][axis] * plan_.factor;
      if (!(std::fabs(number) <= std::numeric_limits<float>::max())) return false;
      range[end][axis] = static_cast<float>(number);
    }
  }
  index = add_accessor(vertices.points.size(), 3, gltfFLOAT);
  plan_.accessors[index].range = range;
  return true;
}

std::size_t gltfPlanner::add_accessor(std::size_t count, std::size_t components, gltfComponentType type) {
  const gltfPlan::Accessor accessor{plan_.data_size, count, components, type};
  plan_.data_size += (accessor.size() + 3) / 4 * 4;
  plan_.accessors.push_back(accessor);
  return plan_.accessors.size() - 1;
}

std::size_t gltfPlanner::material_number(const std::optional<annMaterial>& look, bool blends, bool double_sided) {
  blends = blends || (look && look->colour.opacity < 1);
  LookKey key;
  if (look) key.emplace(look->name.str(), numbers_of(look->colour));
  const auto [known, is_new] = material_numbers_.try_emplace({key, blends, double_sided}, plan_.materials.size());
  if (is_new) plan_.materials.push_back({look, blends, double_sided});
  return known->second;
}

bool gltfPlanner::is_open(const annMesh& mesh) {
  const auto [known, is_new] = open_.try_emplace(&mesh, false);
  if (is_new) known->second = ann_open_edges(mesh) > 0;
  return known->second;
}

bool gltfPlanner::has_faces_without_look(const annMesh& mesh) {
  const auto [known, is_new] = without_look_.try_emplace(&mesh, true);
  if (is_new && !mesh.face_materials.empty()) {
    const auto& looks = mesh.face_materials;
    known->second = std::find(looks.begin(), looks.end(), annMesh::no_material) != looks.end();
  }
  return known->second;
}

bool gltfPlanner::fail(const utString& reason) {
  output_.message(velabsERROR, reason);
  return false;
}
