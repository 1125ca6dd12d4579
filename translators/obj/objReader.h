#pragma once

#include "vltFormat.h"

// Reads polygon meshes from OBJ files: objects and groups become nodes, materials come from the companion files that
// stand beside the file. See objParser.h.
class objReader : public vltDescribed<velabsLibInput> {
 public:
  objReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
