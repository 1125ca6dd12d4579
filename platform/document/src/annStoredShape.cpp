#include "annStoredShape.h"

#include <utility>

namespace {

// True if each coordinate of the result depends on at most one coordinate of the original.
bool keeps_boxes(const annTransform& placement) {
  for (int row = 0; row < 12; row += 4) {
    int used = 0;
    for (int column = 0; column < 3; ++column) used += placement.m[row + column] != 0;
    if (used > 1) return false;
  }
  return true;
}

}  // namespace

annStoredShape::annStoredShape(utString kind, std::string bytes, annShapeContent content, std::optional<annBox> box)
    : kind_(std::move(kind)), bytes_(std::move(bytes)), content_(content), box_(box) {}

std::shared_ptr<const annMesh> annStoredShape::facets(const annTolerance&, apStatus& status, annProgress*) const {
  status.set_failure(
      utString("those of a shape that was kept as bytes can only be made where the library for the kind \"") + kind_ +
      "\" is installed; write the file anew from the shape's source, with facets");
  return nullptr;
}

std::optional<annBox> annStoredShape::box(const annTransform& placement) const {
  if (!box_ || !keeps_boxes(placement)) return std::nullopt;
  const annVector corner = placement.point(box_->min);
  annBox result{corner, corner};
  result.include(placement.point(box_->max));
  return result;
}
