#pragma once

#include "vltFormat.h"

// Writes all bodies as one mesh of polygons to PLY files, binary or ASCII as FILE_FORMAT selects. See plyContent.h.
class plyWriter : public vltDescribed<velabsLibOutput> {
 public:
  explicit plyWriter(velabsOfStream* stream);
  velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) override;

 private:
  velabsOfStream& stream_;
};
