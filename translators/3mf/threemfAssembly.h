#pragma once

#include <cstdint>
#include <vector>

#include "annDocument.h"
#include "threemfModel.h"
#include "threemfReading.h"
#include "velabsOutput.h"

// Puts the objects of the model parts together as the build of the first one says: a node for each item and, below it,
// for each component. Nodes that show one object share its mesh.
class threemfAssembly {
 public:
  // All uses name the part and the object that they mean.
  threemfAssembly(std::vector<threemfModelPart>& parts, const threemfReading& reading, velabsOutput& output)
      : parts_(parts), reading_(reading), output_(output) {}

  // False, and a message, when the items of the build show no triangles, or so many that a few objects must have been
  // multiplied beyond measure. A build without items gives an empty document.
  bool build(annDocument& document);

 private:
  struct Amount {
    std::uint64_t nodes = 0;
    std::uint64_t elements = 0;  // vertices and triangles, each as often as it is shown
    void add(const Amount& other);
  };
  struct Open {
    annNode* node;
    const threemfObject* object;
  };

  bool measure();
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
