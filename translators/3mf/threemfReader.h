#pragma once

#include "vltFormat.h"

// Reads triangle meshes from 3MF packages, as the published core text with the materials and production extensions has
// them. See threemfModelParser.h for a model part and threemfAssembly.h for the tree.
class threemfReader : public vltDescribed<velabsLibInput> {
 public:
  threemfReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
