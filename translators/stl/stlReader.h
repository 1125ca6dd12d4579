#pragma once

#include "vltFormat.h"

// Reads both forms of STL. The size is checked first, because the header of many binary files begins with "solid" like
// text: a file whose size matches its count of triangles is binary.
class stlReader : public vltDescribed<velabsLibInput> {
 public:
  stlReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
