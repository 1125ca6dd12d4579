#include "threemfObjects.h"

#include <cmath>

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);
const utString no_name("");

// Mirrors x in the parent of a placement, or in the placed object.
annTransform turned_outside(annTransform t) {
  for (std::size_t i = 0; i < 4; ++i) t.m[i] = 0 - t.m[i];
  return t;
}
annTransform turned_inside(annTransform t) {
  for (std::size_t i = 0; i < 12; i += 4) t.m[i] = 0 - t.m[i];
  return t;
}

bool flattens(const annTransform& t) {
  const annVector x{t.m[0], t.m[1], t.m[2]}, y{t.m[4], t.m[5], t.m[6]}, z{t.m[8], t.m[9], t.m[10]};
  const double volume = ann_dot(x, ann_cross(y, z));
  return volume == 0 || !std::isfinite(volume);
}

}  // namespace

// A node of the tree, including the root. Parents come before their children.
struct threemfObjects::Entry {
  const annNode* node;
  std::size_t parent;
  annTransform transform;
  bool turned = false;
  const vltPlacedMesh* body = nullptr;
  bool shown = false;       // it or a descendant has faces
  bool has_parts = false;   // a descendant has faces
  std::size_t mesh = none;  // index of the mesh object
  std::uint32_t id = 0;
  std::vector<threemfPlacedObject> components;
};

threemfObjects::threemfObjects(const annDocument& document, const annTransform& whole,
                               const std::vector<vltPlacedMesh>& bodies, const threemfJoinedMeshes& joined,
                               threemfColours& colours)
    : joined_(joined) {
  Bodies by_node;
  for (const vltPlacedMesh& body : bodies) {
    if (joined.of(*body.mesh).mesh.face_count() > 0) by_node.emplace(body.node, &body);
  }
  std::vector<Entry> entries;
  list(document.root, whole * document.root.transform, by_node, entries);
  for (std::size_t i = entries.size(); i-- > 1;) {
    Entry& entry = entries[i];
    entry.shown = entry.body || entry.has_parts;
    if (entry.shown && entry.parent != none) entries[entry.parent].has_parts = true;
    empty_ += !entry.shown;
  }
  for (Entry& entry : entries) {
    if (entry.body) entry.mesh = mesh_object(entry, colours);
  }
  number(entries);
}

void threemfObjects::list(const annNode& root, const annTransform& placement, const Bodies& bodies,
                          std::vector<Entry>& entries) {
  struct Open {
    const annNode* node;
    std::size_t parent;
  };
  std::vector<Open> open{{&root, none}};
  while (!open.empty()) {
    const Open next = open.back();
    open.pop_back();
    Entry entry{.node = next.node, .parent = next.parent, .transform = next.node->transform, .components = {}};
    // The placement of the root is combined with those of the items; the root's own body is an item too.
    if (next.parent == none) entry.transform = placement;
    if (next.parent == 0) entry.transform = placement * entry.transform;
    if (next.parent != none && next.parent != 0 && entries[next.parent].turned) {
      entry.transform = turned_outside(entry.transform);
    }
    if (flattens(entry.transform)) {
      ++flattened_;
      continue;
    }
    entry.turned = entry.transform.mirrors();
    if (entry.turned) entry.transform = turned_inside(entry.transform);
    if (const auto body = bodies.find(next.node); body != bodies.end()) entry.body = body->second;
    const auto& children = next.node->children;
    for (auto child = children.rbegin(); child != children.rend(); ++child) open.push_back({&**child, entries.size()});
    entries.push_back(std::move(entry));
  }
}

std::size_t threemfObjects::mesh_object(const Entry& entry, threemfColours& colours) {
  const annMesh& mesh = *entry.body->mesh;
  const std::optional<annColour> colour = colours.of_whole(mesh, entry.body->colour);
  std::uint64_t variant = entry.turned ? 1 : 0;
  if (colour) variant |= std::uint64_t{threemf_packed(*colour)} << 2 | 2;
  const utString& name = entry.has_parts && entry.parent != none ? no_name : entry.node->name;
  const auto [known, added] = mesh_numbers_.try_emplace({&mesh, variant}, meshes_.size());
  if (added) {
    meshes_.push_back({0, &mesh, &joined_.of(mesh), entry.turned, colour, &name});
    several_names_.push_back(false);
    colours.collect(mesh, colour);
  } else if (*meshes_[known->second].name != name) {
    several_names_[known->second] = true;
  }
  return known->second;
}

void threemfObjects::number(std::vector<Entry>& entries) {
  for (std::size_t i = 0; i < meshes_.size(); ++i) {
    meshes_[i].id = next_id_++;
    if (several_names_[i]) meshes_[i].name = &no_name;
  }
  for (Entry& entry : entries) {
    if (entry.mesh != none) name_mesh(entry);
  }
  // Descendants come first; they are numbered from the last to the first.
  for (std::size_t i = entries.size(); i-- > 1;) {
    Entry& entry = entries[i];
    if (!entry.shown) continue;
    if (entry.has_parts) {
      if (entry.id != 0) entry.components.push_back({entry.id, {}, {}});
      entry.id = next_id_++;
      assemblies_.push_back({entry.id, &entry.node->name, {entry.components.rbegin(), entry.components.rend()}});
      entry.components = {};
    }
    const std::string_view instance_name = entry.node->instance_name.view();
    has_instance_names_ = has_instance_names_ || !instance_name.empty();
    entries[entry.parent].components.push_back({entry.id, entry.transform, instance_name});
  }
  if (entries.empty()) return;
  const Entry& root = entries.front();
  if (root.id != 0) items_.push_back({root.id, root.transform, {}});
  items_.insert(items_.end(), root.components.rbegin(), root.components.rend());
}

// Sets the object that shows the mesh under the node's name.
void threemfObjects::name_mesh(Entry& entry) {
  const threemfMeshObject& mesh = meshes_[entry.mesh];
  entry.id = mesh.id;
  const bool inner = entry.has_parts && entry.parent != none;
  const utString& name = inner ? no_name : entry.node->name;
  if (name == *mesh.name) return;
  const auto [known, added] = names_of_meshes_.try_emplace({entry.mesh, name.view()}, next_id_);
  entry.id = known->second;
  if (!added) return;
  ++next_id_;
  assemblies_.push_back({entry.id, &name, {{mesh.id, {}, {}}}});
}
