#pragma once

#include "vltFormat.h"

// Reads triangle meshes from 3MF packages, as in the published core specification with the materials and production
// extensions. See threemfModelParser.h for a model part and threemfAssembly.h for the tree.
class threemfReader : public vltDescribed<velabsLibInput> {
 public:
  threemfReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
