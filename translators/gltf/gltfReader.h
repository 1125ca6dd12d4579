#pragma once

#include "vltFormat.h"

// Reads the nodes and triangle meshes of glTF 2.0, as text and as GLB, with their colours.
class gltfReader : public vltDescribed<velabsLibInput> {
 public:
  gltfReader();
  void file_types(intcoSet& types) const override;
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
