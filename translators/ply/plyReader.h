#pragma once

#include "vltFormat.h"

// Reads polygon meshes from PLY files, ASCII and binary in both byte orders. See plyBody.h.
class plyReader : public vltDescribed<velabsLibInput> {
 public:
  plyReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
