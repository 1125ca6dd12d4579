#pragma once

#include "vltFormat.h"

// Reads meshes of polygons from PLY files, ASCII and binary in both orders of bytes. See plyBody.h.
class plyReader : public vltDescribed<velabsLibInput> {
 public:
  plyReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
