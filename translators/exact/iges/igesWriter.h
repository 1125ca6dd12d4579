#pragma once

#include "vltFormat.h"

// Writes IGES files. The format has no products: each instance of a part is written separately, in place.
class igesWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit igesWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
