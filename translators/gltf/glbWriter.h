#pragma once

#include "vltFormat.h"

// Writes glTF 2.0 as GLB: the JSON and its binary data in one file of less than 4 GiB.
class glbWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit glbWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
