#pragma once

#include "vltFormat.h"

// Writes polygon meshes to OBJ files, each body as an object, and their materials to a sidecar file.
class objWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit objWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
