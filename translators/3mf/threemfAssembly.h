#pragma once

#include <cstdint>
#include <vector>

#include "annDocument.h"
#include "threemfModel.h"
#include "threemfReading.h"
#include "velabsOutput.h"

// Builds the tree of a document from the objects of the model parts and the build of the first one: a node for each
// item and, below it, for each component. Nodes of one object share its mesh.
class threemfAssembly {
 public:
  // All uses must have the part and the object that they refer to.
  threemfAssembly(std::vector<threemfModelPart>& parts, const threemfReading& reading, velabsOutput& output)
      : parts_(parts), reading_(reading), output_(output) {}

  // False, with a message, when the items of the build have no triangles, or when a few objects are multiplied to too
  // many. A build without items gives an empty document.
  bool build(annDocument& document);

 private:
  struct Amount {
    std::uint64_t nodes = 0;
    std::uint64_t elements = 0;  // vertices and triangles of all instances
    std::uint64_t name_bytes = 0;
    void add(const Amount& other);
  };
  struct Open {
    annNode* node;
    const threemfObject* object;
  };

  bool measure();
  Amount amount_of(const threemfUse& use) const;
  const threemfObject& object(const threemfUse& use) const { return parts_[use.part].objects[use.object]; }
  const threemfObject* only_mesh(const threemfObject& object) const;
  void fill(annNode& node, const threemfObject& object, std::vector<Open>& open);
  std::vector<std::vector<bool>> used_objects() const;
  void note_unused(const std::vector<std::vector<bool>>& used) const;
  void note_types(const std::vector<std::vector<bool>>& used) const;

  std::vector<threemfModelPart>& parts_;
  const threemfReading& reading_;
  velabsOutput& output_;
  std::vector<std::vector<Amount>> amounts_;
};
