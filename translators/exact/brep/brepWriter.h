#pragma once

#include "vltFormat.h"

// Writes the kernel's native format, text or binary as FILE_FORMAT selects. Assemblies become compounds that share
// their parts.
class brepWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit brepWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
