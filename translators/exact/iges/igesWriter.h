#pragma once

#include "vltFormat.h"

// Writes IGES files. The format knows no products: each part is written where it stands.
class igesWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit igesWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
