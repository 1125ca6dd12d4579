#pragma once

#include "vltFormat.h"

// Reads both forms of STL. Which one a file has is told by its size first, because the remarks of many binary files
// begin with "solid" as text does: a file that is exactly as long as its count of triangles asks for is binary.
class stlReader : public vltDescribed<velabsLibInput> {
 public:
  stlReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
