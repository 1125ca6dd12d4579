#pragma once

#include "vltFormat.h"

// Writes glTF 2.0 as text. The binary data is written to a file beside it. It is written as base64 into the text if
// EMBED_BUFFERS is set or the output cannot have files beside it.
class gltfWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit gltfWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
