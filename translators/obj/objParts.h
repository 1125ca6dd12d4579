#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "annDocument.h"

// The mesh of the faces of one object and group.
struct objPart {
  std::shared_ptr<annMesh> mesh;
  std::unordered_map<std::uint32_t, std::uint32_t> local_material_of;  // from the file's number to the mesh's
  std::vector<std::uint32_t> materials;                                // from the mesh's number to the file's
};

// The nodes for the statements "o" and "g": one for each object, and below it one for each of its groups. Groups
// outside objects are top nodes. A node is created with its first face; a repeated name refers to the same node.
class objParts {
 public:
  objParts(annDocument& document, std::shared_ptr<annVertices> vertices)
      : document_(document), vertices_(std::move(vertices)) {}

  // Starts an object; its first faces are in no group.
  void object(std::string_view name);
  void group(std::string_view name);

  // The part that gets the next face.
  objPart& current() { return current_ ? *current_ : find_current(); }

  // The name of the first object or group, with or without faces.
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
