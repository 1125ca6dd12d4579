#pragma once

#include "vltFormat.h"

// Writes glTF 2.0 as text. The binary data goes to a file beside it, or as base64 into the text: where nothing can
// stand beside the file, and when EMBED_BUFFERS says so.
class gltfWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit gltfWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
