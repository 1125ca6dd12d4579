#pragma once

#include <optional>
#include <vector>

#include "annMaterial.h"
#include "gltfModel.h"
#include "vltOnce.h"

// The materials of a file: of each the name, the base colour and, where the file says that it counts, the opacity.
class gltfMaterials {
 public:
  gltfMaterials(const gltfModel& model, vltOnce& findings)
      : model_(model), findings_(findings), materials_(model.count(gltfMATERIALS)) {}

  // Null, and a message, when the material is not as it must be.
  const annMaterial* find(std::size_t index);

 private:
  std::optional<annMaterial> read(const gltfValue& value) const;

  const gltfModel& model_;
  vltOnce& findings_;
  std::vector<std::optional<annMaterial>> materials_;
};
