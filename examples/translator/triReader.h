#pragma once

#include "triFormat.h"
#include "velabsLibInput.h"

// Reads the triangles of a file as one part; equal points become one vertex.
class triReader : public triFormat<velabsLibInput> {
 public:
  const char* description() const override { return "Reads triangles from text, nine numbers on each line."; }
  void file_types(intcoSet& types) const override;
  velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                    velabsOutput& output) override;
};
