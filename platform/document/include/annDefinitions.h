#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "annDocument.h"
#include "apExport.h"

// The distinct parts and assemblies of a document. Nodes of the same name, colour and bodies, whose children are the
// same in the same places, are one definition, wherever they stand: what a document repeats is described once. Names of
// instances belong to the uses. The document must outlive this.
class VELPLATFORM_API annDefinitions {
 public:
  // A definition where it stands in another one, or in the document.
  struct Use {
    std::size_t definition;
    annTransform transform;
    utString instance_name;

    friend bool operator==(const Use&, const Use&) = default;
  };
  struct Definition {
    const annNode* node;  // one of those that it stands for; its transform and children do not matter
    std::vector<Use> uses;
  };

  explicit annDefinitions(const annDocument& document);

  // What a definition uses comes before it.
  const std::vector<Definition>& definitions() const { return definitions_; }

  // What stands in the document itself; its root is none of them unless it has something of its own to show.
  const std::vector<Use>& top() const { return top_; }

  // How many uses there are in assemblies, each counted once for its definition.
  std::size_t occurrences() const;

  // How deep definitions stand in each other: 1 for parts alone, 0 for nothing.
  std::size_t depth() const;

 private:
  std::size_t number_of(const annNode& node, std::vector<Use> uses);
  void define(const annNode& root);

  std::vector<Definition> definitions_;
  std::vector<Use> top_;
  std::unordered_multimap<std::size_t, std::size_t> by_hash_;
};
