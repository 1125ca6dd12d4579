#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "annDocument.h"
#include "gltfMeshes.h"

// Makes the tree of a document from the nodes of a file: those of the default scene, else all. A node with two parents
// or below itself is an error. Our writers add a root node to rotate +Z to +Y. In a document with +Y up, this node is
// removed, and the document gets +Z up.
class gltfScene {
 public:
  gltfScene(const gltfModel& model, gltfMeshes& meshes, double factor, vltOnce& findings)
      : model_(model), meshes_(meshes), factor_(factor), findings_(findings) {}

  bool read(annDocument& document);

 private:
  static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
  static constexpr std::uint64_t most_name_bytes = 256 << 20;

  bool read_children();
  bool check_for_cycles() const;
  bool find_roots(std::vector<std::size_t>& roots) const;
  bool remove_turn(std::vector<std::size_t>& roots, annDocument& document) const;
  bool read_node(std::size_t index, annNode& node);
  bool read_mesh(const gltfValue& value, annNode& node);

  const gltfModel& model_;
  gltfMeshes& meshes_;
  double factor_;
  vltOnce& findings_;
  std::vector<std::size_t> parents_;
  std::vector<std::vector<std::size_t>> children_;
  std::uint64_t name_bytes_ = 0;  // of the meshes at all nodes
};
