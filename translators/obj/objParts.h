#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "annDocument.h"

// What the faces of one object and group make.
struct objPart {
  std::shared_ptr<annMesh> mesh;
  std::unordered_map<std::uint32_t, std::uint32_t> local_material_of;  // file's number to the mesh's
  std::vector<std::uint32_t> materials;                                // the mesh's number to the file's
};

// The nodes that the statements "o" and "g" ask for: one for each object, and below it one for each of its groups.
// Groups outside objects stand at the top. A node comes into being with its first face; a name that comes again means
// the same node.
class objParts {
 public:
  objParts(annDocument& document, std::shared_ptr<annVertices> vertices)
      : document_(document), vertices_(std::move(vertices)) {}

  // A new object is in no group.
  void object(std::string_view name);
  void group(std::string_view name);

  // Where the next face belongs.
  objPart& current() { return current_ ? *current_ : find_current(); }

  // The name of the first object or group, whether it has faces or not.
  const std::string& first_name() const { return first_name_; }

  std::deque<objPart>& all() { return parts_; }

 private:
  objPart& find_current();
  annNode& node_of_object();

  annDocument& document_;
  std::shared_ptr<annVertices> vertices_;
  std::string object_, group_, first_name_;
  objPart* current_ = nullptr;
  std::deque<objPart> parts_;
  std::unordered_map<std::string, objPart*> by_names_;
  std::unordered_map<std::string, annNode*> object_nodes_;
};
