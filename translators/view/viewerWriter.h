#pragma once

#include "vltFormat.h"

// Writes a model as a single page for a browser, with the data and the viewer and without external files.
class viewerWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit viewerWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
