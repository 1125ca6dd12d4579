#pragma once

#include "vltFormat.h"

// Reads HPF, which holds a whole document. Exact shapes come as the bytes of their kind.
class hpfReader : public vltDescribed<velabsLibInput> {
 public:
  hpfReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
