#pragma once

#include "vltFormat.h"

// Reads STEP files (ISO 10303-21) of AP203, AP214 and AP242, and the files in their directory that they refer to.
// Numbers keep the unit of the first product that is not part of another one.
class stepReader : public vltDescribed<velabsLibInput> {
 public:
  stepReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
