#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "annDocument.h"
#include "apExport.h"

// The distinct parts and assemblies of a document, so that repeated ones are described once. Nodes with the same name,
// colour and bodies, whose children are the same with the same placements, share one definition. Names of instances
// belong to the uses. The document must outlive this object.
class VELPLATFORM_API annDefinitions {
 public:
  // An instance of a definition in another definition or in the document.
  struct Use {
    std::size_t definition;
    annTransform transform;
    utString instance_name;

    friend bool operator==(const Use&, const Use&) = default;
  };
  struct Definition {
    const annNode* node;  // one of the nodes of this definition; ignore its transform and children
    std::vector<Use> uses;
  };

  explicit annDefinitions(const annDocument& document);

  // Each definition comes after those that it uses.
  const std::vector<Definition>& definitions() const { return definitions_; }

  // The uses at the top of the document. The root is not included, unless it has a body, a transform or a colour.
  const std::vector<Use>& top() const { return top_; }

  // The number of uses in assemblies. The uses of a definition are counted once.
  std::size_t occurrences() const;

  // The maximum nesting depth of definitions: 1 for parts only, 0 for an empty document.
  std::size_t depth() const;

 private:
  std::size_t number_of(const annNode& node, std::vector<Use> uses);
  void define(const annNode& root);

  std::vector<Definition> definitions_;
  std::vector<Use> top_;
  std::unordered_multimap<std::size_t, std::size_t> by_hash_;
};
