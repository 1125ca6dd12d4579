#include "annNode.h"

annNode::~annNode() {
  // A chain of millions of nodes must not become a chain of calls: descendants are moved out before they die.
  std::vector<std::unique_ptr<annNode>> doomed = std::move(children);
  while (!doomed.empty()) {
    std::unique_ptr<annNode> node = std::move(doomed.back());
    doomed.pop_back();
    for (auto& child : node->children) doomed.push_back(std::move(child));
    node->children.clear();
  }
}

annNode& annNode::add_child(utString child_name) {
  children.push_back(std::make_unique<annNode>(std::move(child_name)));
  return *children.back();
}
