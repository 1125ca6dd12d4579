#pragma once

#include "vltFormat.h"

// Reads the kernel's native format, text or binary. Compounds that contain compounds or several solids become nodes
// and keep the placements of their members. A part with several instances becomes one shared body.
class brepReader : public vltDescribed<velabsLibInput> {
 public:
  brepReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
