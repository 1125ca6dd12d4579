#include "objParts.h"

void objParts::object(std::string_view name) {
  object_ = name;
  group_.clear();
  current_ = nullptr;
  if (first_name_.empty()) first_name_ = name;
}

void objParts::group(std::string_view name) {
  group_ = name;
  current_ = nullptr;
  if (first_name_.empty()) first_name_ = name;
}

objPart& objParts::find_current() {
  // Neither name has a line break.
  objPart*& known = by_names_[object_ + '\n' + group_];
  if (!known) {
    known = &parts_.emplace_back();
    known->mesh = std::make_shared<annMesh>();
    known->mesh->vertices = vertices_;
    annNode& parent = node_of_object();
    annNode& node = group_.empty() ? parent : parent.add_child(utString(group_));
    node.body.mesh = known->mesh;
  }
  current_ = known;
  return *known;
}

annNode& objParts::node_of_object() {
  if (object_.empty() && !group_.empty()) return document_.root;
  annNode*& node = object_nodes_[object_];
  if (!node) node = &document_.root.add_child(object_.empty() ? utString() : utString(object_));
  return *node;
}
