#pragma once

#include "vltFormat.h"

// Reads IGES files: solids and surfaces, including loose ones. Numbers keep the unit of the file.
class igesReader : public vltDescribed<velabsLibInput> {
 public:
  igesReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
