#pragma once

#include "vltFormat.h"

// Reads polygon meshes from OFF files. See offParser.h.
class offReader : public vltDescribed<velabsLibInput> {
 public:
  offReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
