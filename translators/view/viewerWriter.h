#pragma once

#include "vltFormat.h"

// Writes a model as one page for a browser: it holds the model, what draws it, and nothing that lies elsewhere.
class viewerWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit viewerWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
