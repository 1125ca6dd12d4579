#include "hpfPlan.h"

#include <cstring>
#include <utility>

namespace {

template <typename Element>
std::string_view bytes_of(const std::vector<Element>& elements) {
  return {reinterpret_cast<const char*>(elements.data()), elements.size() * sizeof(Element)};
}

template <typename Record>
void append(std::string& bytes, const Record& record) {
  bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
}

// Appends a name and returns its length for a record.
std::uint64_t append_name(std::string& names, const utString& name) {
  if (name.is_null()) return hpf_no_name;
  names += name.view();
  return name.length();
}

std::array<float, 4> numbers_of(const annColour& colour) {
  return {colour.red, colour.green, colour.blue, colour.opacity};
}

}  // namespace

hpfChunk& hpfPlan::add_chunk(const std::array<char, 4>& name) {
  return chunks_.emplace_back(hpfChunk{name, hpf_critical, {}});
}

hpfChunk& hpfPlan::add_newer_chunk(const std::array<char, 4>& name) {
  minor_ = hpf_minor;
  return chunks_.emplace_back(hpfChunk{name, 0, {}});
}

std::string_view hpfPlan::keep(std::string bytes) {
  return kept_.emplace_back(std::move(bytes));
}

template <typename Record>
std::string_view hpfPlan::keep_record(const Record& record) {
  std::string bytes;
  append(bytes, record);
  return keep(std::move(bytes));
}

std::uint32_t hpfPlan::number_of(const annVertices& vertices) {
  const auto [entry, added] =
      vertices_numbers_.try_emplace(&vertices, static_cast<std::uint32_t>(vertices_numbers_.size()));
  if (!added) return entry->second;
  const hpfVerticesHead head{vertices.points.size(), vertices.normals.size(), vertices.colours.size(), {}};
  add_chunk(hpf_vertices_chunk).pieces = {keep_record(head), bytes_of(vertices.points), bytes_of(vertices.normals),
                                          bytes_of(vertices.colours)};
  if (!vertices.normal_pool.empty()) {
    const hpfPoolHead pool{entry->second, vertices.normal_pool.size(), {}};
    add_newer_chunk(hpf_pool_chunk).pieces = {keep_record(pool), bytes_of(vertices.normal_pool)};
  }
  return entry->second;
}

std::uint32_t hpfPlan::number_of(const std::shared_ptr<const annMesh>& mesh) {
  const auto [entry, added] = mesh_numbers_.try_emplace(mesh.get(), static_cast<std::uint32_t>(mesh_numbers_.size()));
  if (!added) return entry->second;
  meshes_.push_back(mesh);
  std::string materials;
  std::string names;
  for (const annMaterial& material : mesh->materials) {
    append(materials, hpfMaterial{append_name(names, material.name), numbers_of(material.colour)});
  }
  const hpfMeshHead head{number_of(*mesh->vertices),
                         mesh->corners.size(),
                         mesh->face_starts.size(),
                         mesh->face_materials.size(),
                         mesh->materials.size(),
                         names.size(),
                         {}};
  add_chunk(hpf_mesh_chunk).pieces = {keep_record(head),           bytes_of(mesh->corners),
                                      bytes_of(mesh->face_starts), bytes_of(mesh->face_materials),
                                      keep(std::move(materials)),  keep(std::move(names))};
  if (!mesh->corner_normals.empty()) {
    const hpfCornerNormalsHead normals{entry->second, mesh->corner_normals.size(), {}};
    add_newer_chunk(hpf_corner_normals_chunk).pieces = {keep_record(normals), bytes_of(mesh->corner_normals)};
  }
  return entry->second;
}

bool hpfPlan::number_of(const annExactShape& shape, std::uint32_t& number, std::string& failure) {
  const auto [entry, added] = shape_numbers_.try_emplace(&shape, static_cast<std::uint32_t>(shape_numbers_.size()));
  number = entry->second;
  if (!added) return true;
  apStatus status;
  const std::string_view bytes = keep(shape.save(status));
  if (!status.ok()) {
    failure = status.failure().str();
    return false;
  }
  const std::string_view kind = keep(shape.kind().str());
  const annShapeContent content = shape.content();
  hpfShapeHead head{kind.size(), bytes.size(), content.solids, content.faces, 0, {}, {}};
  if (const std::optional<annBox> box = shape.box(annTransform())) {
    head.has_box = 1;
    head.box = {box->min.x, box->min.y, box->min.z, box->max.x, box->max.y, box->max.z};
  }
  add_chunk(hpf_shape_chunk).pieces = {keep_record(head), kind, bytes};
  return true;
}

bool hpfPlan::make(const annDocument& document, const MeshOf& mesh_of, std::string& failure) {
  struct Open {
    const annNode* node;
    std::uint32_t parent;
  };
  std::vector<Open> open{{&document.root, hpf_none}};
  std::string records;
  std::string names;
  std::vector<const annNode*> nodes;
  while (!open.empty()) {
    const auto [node, parent] = open.back();
    open.pop_back();
    hpfNode record{parent, 0, hpf_none, hpf_none, node->transform.m, {}, append_name(names, node->name)};
    if (const auto mesh = mesh_of(*node)) record.mesh = number_of(mesh);
    if (node->body.shape && !number_of(*node->body.shape, record.shape, failure)) {
      failure = "the shape of \"" + node->name.str() + "\" cannot be kept: " + failure;
      return false;
    }
    if (node->colour) {
      record.flags |= hpf_has_colour;
      record.colour = numbers_of(*node->colour);
    }
    append(records, record);
    for (auto child = node->children.rbegin(); child != node->children.rend(); ++child) {
      open.push_back({child->get(), static_cast<std::uint32_t>(nodes.size())});
    }
    nodes.push_back(node);
  }
  const hpfTreeHead head{nodes.size(), names.size(), static_cast<std::uint64_t>(document.unit), {}};
  add_chunk(hpf_tree_chunk).pieces = {keep_record(head), keep(std::move(records)), keep(std::move(names))};
  add_instance_names(nodes);
  if (document.up != annUP_UNKNOWN) {
    add_newer_chunk(hpf_up_chunk).pieces = {keep_record(hpfUpHead{static_cast<std::uint64_t>(document.up), {}})};
  }
  return true;
}

void hpfPlan::add_instance_names(const std::vector<const annNode*>& nodes) {
  std::string records;
  std::string names;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const utString& name = nodes[i]->instance_name;
    if (name.is_null()) continue;
    append(records, hpfInstanceName{static_cast<std::uint32_t>(i), 0, append_name(names, name)});
  }
  if (records.empty()) return;
  const hpfInstanceNamesHead head{records.size() / sizeof(hpfInstanceName), names.size(), {}};
  add_newer_chunk(hpf_instance_names_chunk).pieces = {keep_record(head), keep(std::move(records)),
                                                      keep(std::move(names))};
}
