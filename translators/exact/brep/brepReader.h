#pragma once

#include "vltFormat.h"

// Reads the kernel's own format, in its text and its binary form. Compounds that hold others or several solids become
// nodes, what they hold keeps its place in them, and parts that stand in several places are one body.
class brepReader : public vltDescribed<velabsLibInput> {
 public:
  brepReader();
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
