#pragma once

#include "vltFormat.h"

// Writes a model as a 3MF package: each mesh once, the tree as objects with components, colours and materials as
// properties. See threemfObjects.h for how a tree becomes objects.
class threemfWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit threemfWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
