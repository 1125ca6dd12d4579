#pragma once

#include "vltFormat.h"

// Writes the kernel's own format as text or binary, as FILE_FORMAT says. Assemblies become compounds that share their
// parts.
class brepWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit brepWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
