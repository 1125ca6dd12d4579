#pragma once

#include "annExactShape.h"

// An exact shape as the bytes of its kind, for documents that come through without the library that understands them:
// it gives back what it was made from and has no facets of its own, so a body holds a mesh beside it.
class VELPLATFORM_API annStoredShape final : public annExactShape {
 public:
  // `box` is the one around the shape as it stands in the bytes, where that is known.
  annStoredShape(utString kind, std::string bytes, annShapeContent content, std::optional<annBox> box);

  // Always a failure: says that it takes the library for this kind.
  std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus& status,
                                        annProgress* progress) const override;

  annShapeContent content() const override { return content_; }
  // None too where the placement turns the axes into other directions.
  std::optional<annBox> box(const annTransform& placement) const override;

  utString kind() const override { return kind_; }
  std::string save(apStatus&) const override { return bytes_; }

 private:
  utString kind_;
  std::string bytes_;
  annShapeContent content_;
  std::optional<annBox> box_;
};
