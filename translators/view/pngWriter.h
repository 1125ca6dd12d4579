#pragma once

#include "vltFormat.h"

// Writes a picture of a model.
class pngWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit pngWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
