#include "gltfScene.h"

#include <algorithm>

#include "gltfPlacement.h"

bool gltfScene::read(annDocument& document) {
  std::vector<std::size_t> roots;
  if (!read_children() || !check_for_cycles() || !find_roots(roots) || !remove_turn(roots, document)) {
    return false;
  }
  if (roots.empty()) {
    // A file may contain only buffers: it is read as an empty model.
    document.root.add_child("");
    findings_.count(velabsWARNING, "no node is to be shown: the model is empty");
  }

  // Nodes are processed in order, so children keep the order of the file.
  struct Open {
    std::size_t index;
    annNode* node;
  };
  std::vector<Open> open;
  auto add = [&](annNode& parent, const std::vector<std::size_t>& nodes) {
    for (std::size_t index : nodes) open.push_back({index, &parent.add_child("")});
  };
  add(document.root, roots);
  for (std::size_t i = 0; i < open.size(); ++i) {
    const Open current = open[i];
    if (!read_node(current.index, *current.node)) return false;
    add(*current.node, children_[current.index]);
  }
  if (model_.count(gltfMESHES) == 0) findings_.count(velabsWARNING, "the file holds no meshes");
  return true;
}

bool gltfScene::read_children() {
  constexpr const char* key = "children";
  parents_.assign(model_.count(gltfNODES), none);
  children_.resize(parents_.size());
  for (std::size_t i = 0; i < parents_.size(); ++i) {
    const gltfValue node = model_.item(gltfNODES, i);
    const gltfValue::Array* children = nullptr;
    if (!node.read(key, children)) return false;
    if (!children) continue;
    children_[i].resize(children->size());
    for (std::size_t k = 0; k < children->size(); ++k) {
      std::size_t& child = children_[i][k];
      if (!model_.refer(node, key, *children, k, gltfNODES, child)) return false;
      if (parents_[child] != none) {
        return node.fail(key, "nodes[" + std::to_string(child) + "] already is a child of nodes[" +
                                  std::to_string(parents_[child]) + "]; a node has one parent");
      }
      parents_[child] = i;
    }
  }
  return true;
}

// Each node has at most one parent, so a node that is not reached from a root is in or below a cycle.
bool gltfScene::check_for_cycles() const {
  std::vector<bool> reached(parents_.size());
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < parents_.size(); ++i) {
    if (parents_[i] == none) open.push_back(i);
  }
  while (!open.empty()) {
    const std::size_t index = open.back();
    open.pop_back();
    reached[index] = true;
    open.insert(open.end(), children_[index].begin(), children_[index].end());
  }
  const auto lost = std::find(reached.begin(), reached.end(), false);
  if (lost == reached.end()) return true;
  return model_.item(gltfNODES, static_cast<std::size_t>(lost - reached.begin())).fail("it stands below itself");
}

bool gltfScene::find_roots(std::vector<std::size_t>& roots) const {
  constexpr const char* key = "nodes";
  if (model_.count(gltfSCENES) == 0) {
    for (std::size_t i = 0; i < parents_.size(); ++i) {
      if (parents_[i] == none) roots.push_back(i);
    }
    return true;
  }
  std::optional<std::size_t> chosen;
  if (!model_.refer(model_.root(), "scene", gltfSCENES, chosen)) return false;
  if (model_.count(gltfSCENES) > 1) findings_.count(velabsNOTE, "of several scenes only one is read");
  const gltfValue scene = model_.item(gltfSCENES, chosen.value_or(0));
  const gltfValue::Array* nodes = nullptr;
  if (!scene.read(key, nodes)) return false;
  std::vector<bool> seen(parents_.size());
  for (std::size_t i = 0; nodes && i < nodes->size(); ++i) {
    std::size_t index = 0;
    if (!model_.refer(scene, key, *nodes, i, gltfNODES, index)) return false;
    const std::string node = "nodes[" + std::to_string(index) + "]";
    if (parents_[index] != none) return scene.fail(key, node + " is a child of another node");
    if (seen[index]) return scene.fail(key, node + " stands in it twice");
    seen[index] = true;
    roots.push_back(index);
  }
  return true;
}

bool gltfScene::remove_turn(std::vector<std::size_t>& roots, annDocument& document) const {
  if (document.up != annUP_Y || roots.size() != 1) return true;
  const gltfValue node = model_.item(gltfNODES, roots[0]);
  const std::vector<std::size_t>& below = children_[roots[0]];
  if (node.extra(gltf_up_key) != gltf_up_z || node.has("mesh") || below.empty()) return true;
  annTransform placement;
  if (!gltf_read_placement(node, factor_, placement)) return false;
  if (placement != ann_turn(annUP_Z, annUP_Y)) return true;
  document.up = annUP_Z;
  roots = below;
  return true;
}

bool gltfScene::read_node(std::size_t index, annNode& node) {
  const gltfValue value = model_.item(gltfNODES, index);
  std::string_view name;
  if (!value.read("name", name) || !gltf_read_placement(value, factor_, node.transform)) return false;
  if (!name.empty()) node.name = utString(name);
  return read_mesh(value, node);
}

bool gltfScene::read_mesh(const gltfValue& value, annNode& node) {
  std::optional<std::size_t> index;
  if (!model_.refer(value, "mesh", gltfMESHES, index)) return false;
  if (!index) return true;
  const gltfMeshes::Mesh* mesh = meshes_.find(*index);
  if (!mesh) return false;
  node.body.mesh = mesh->mesh;
  if (!mesh->name.empty()) {
    // Many nodes may show one mesh, and each gets a copy of its name.
    name_bytes_ += mesh->name.size();
    if (name_bytes_ > most_name_bytes) return value.fail("mesh", "the names of the meshes at all nodes exceed 256 MiB");
    // If the part has another name, the node's name is that of the instance.
    if (!node.name.empty() && node.name.view() != mesh->name) node.instance_name = node.name;
    node.name = utString(mesh->name);
  }
  if (value.has("skin")) findings_.count(velabsNOTE, "skins are left out: the shape at rest is read");
  std::optional<gltfValue> extensions;
  if (!value.read("extensions", extensions)) return false;
  if (extensions && extensions->has("EXT_mesh_gpu_instancing")) {
    findings_.count(velabsNOTE, "of a mesh that a node shows in many places one is read");
  }
  return true;
}
