#pragma once

#include "vltFormat.h"

// Writes HPF, which stores a whole document.
class hpfWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit hpfWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
