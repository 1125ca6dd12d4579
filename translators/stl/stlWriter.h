#pragma once

#include "vltFormat.h"

// Writes both forms of STL; FILE_FORMAT selects one.
class stlWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit stlWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
