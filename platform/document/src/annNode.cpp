#include "annNode.h"

annNode::~annNode() {
  // Deletes iteratively, because a chain of millions of nodes would overflow the stack: descendants are moved out
  // before their parent is deleted.
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
