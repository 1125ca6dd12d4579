#pragma once

#include "annExactShape.h"

// An exact shape as the bytes of its format, so that a document can be copied without the library for that format. It
// returns the bytes unchanged and cannot create facets, so a body has a mesh beside it.
class VELPLATFORM_API annStoredShape final : public annExactShape {
 public:
  // `box` is the one around the shape without a placement, if it is known.
  annStoredShape(utString kind, std::string bytes, annShapeContent content, std::optional<annBox> box);

  // Always fails; the status names the library that is needed for this format.
  std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus& status,
                                        annProgress* progress) const override;

  annShapeContent content() const override { return content_; }
  // Also none if the placement turns the axes into other directions.
  std::optional<annBox> box(const annTransform& placement) const override;

  utString kind() const override { return kind_; }
  std::string save(apStatus&) const override { return bytes_; }

 private:
  utString kind_;
  std::string bytes_;
  annShapeContent content_;
  std::optional<annBox> box_;
};
