#pragma once

#include "vltFormat.h"

// Writes STEP files of the application protocol that STEP_AP selects. A part with several instances is one product.
class stepWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit stepWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
