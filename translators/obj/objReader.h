#pragma once

#include "vltFormat.h"

// Reads polygon meshes from OBJ files: objects and groups become nodes, materials come from sidecar files in the same
// directory. See objParser.h.
class objReader : public vltDescribed<velabsLibInput> {
 public:
  objReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
