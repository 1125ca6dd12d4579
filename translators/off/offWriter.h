#pragma once

#include "vltFormat.h"

// Writes all bodies as one mesh of polygons to OFF files. See offMeshWriter.h.
class offWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit offWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
