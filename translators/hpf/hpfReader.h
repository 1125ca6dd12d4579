#pragma once

#include "vltFormat.h"

// Reads HPF, which stores a whole document. Exact shapes are read as the bytes of their kind.
class hpfReader : public vltDescribed<velabsLibInput> {
 public:
  hpfReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
