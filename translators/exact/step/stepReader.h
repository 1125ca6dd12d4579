#pragma once

#include "vltFormat.h"

// Reads STEP files, ISO 10303-21, of AP203, AP214 and AP242, and the files that they refer to in their own directory.
// Numbers stay in the unit of the first product that is part of no other.
class stepReader : public vltDescribed<velabsLibInput> {
 public:
  stepReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
