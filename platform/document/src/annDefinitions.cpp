#include "annDefinitions.h"

#include <algorithm>
#include <functional>

namespace {

std::size_t mixed(std::size_t hash, std::size_t more) {
  return (hash ^ more) * 0x9E3779B97F4A7C15u + (hash >> 29);
}

std::size_t hash_of(const annNode& node, const std::vector<annDefinitions::Use>& uses) {
  std::size_t hash = std::hash<std::string>()(node.name.str());
  hash = mixed(hash, std::hash<const void*>()(node.body.mesh.get()));
  hash = mixed(hash, std::hash<const void*>()(node.body.shape.get()));
  for (const annDefinitions::Use& use : uses) {
    hash = mixed(hash, use.definition);
    hash = mixed(hash, std::hash<std::string>()(use.instance_name.str()));
    // 0 and -0 are equal and must have the same hash.
    for (double number : use.transform.m) hash = mixed(hash, std::hash<double>()(number));
  }
  return hash;
}

bool same(const annNode& a, const annNode& b) {
  return a.name == b.name && a.colour == b.colour && a.body.mesh == b.body.mesh && a.body.shape == b.body.shape;
}

}  // namespace

annDefinitions::annDefinitions(const annDocument& document) {
  const annNode& root = document.root;
  if (!root.body.empty() || root.colour || !root.transform.is_identity()) {
    define(root);
    top_.push_back({definitions_.size() - 1, root.transform, root.instance_name});
    return;
  }
  define(root);
  top_ = std::move(definitions_.back().uses);
  definitions_.pop_back();
}

void annDefinitions::define(const annNode& root) {
  struct Open {
    const annNode* node;
    std::vector<Use> uses;
  };
  std::vector<Open> open;
  open.push_back({&root, {}});
  while (true) {
    Open& current = open.back();
    if (current.uses.size() < current.node->children.size()) {
      open.push_back({current.node->children[current.uses.size()].get(), {}});
      continue;
    }
    const annNode* const node = current.node;
    std::vector<Use> uses = std::move(current.uses);
    open.pop_back();
    if (open.empty()) {
      // The root is always the last definition.
      definitions_.push_back({node, std::move(uses)});
      return;
    }
    open.back().uses.push_back({number_of(*node, std::move(uses)), node->transform, node->instance_name});
  }
}

std::size_t annDefinitions::number_of(const annNode& node, std::vector<Use> uses) {
  const std::size_t hash = hash_of(node, uses);
  const auto [first, last] = by_hash_.equal_range(hash);
  for (auto known = first; known != last; ++known) {
    const Definition& definition = definitions_[known->second];
    if (same(*definition.node, node) && definition.uses == uses) return known->second;
  }
  by_hash_.emplace(hash, definitions_.size());
  definitions_.push_back({&node, std::move(uses)});
  return definitions_.size() - 1;
}

std::size_t annDefinitions::occurrences() const {
  std::size_t count = 0;
  for (const Definition& definition : definitions_) count += definition.uses.size();
  return count;
}

std::size_t annDefinitions::depth() const {
  std::vector<std::size_t> depths;
  std::size_t deepest = 0;
  for (const Definition& definition : definitions_) {
    std::size_t below = 0;
    for (const Use& use : definition.uses) below = std::max(below, depths[use.definition]);
    depths.push_back(below + 1);
    deepest = std::max(deepest, below + 1);
  }
  return deepest;
}
