#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "annBox.h"
#include "annMesh.h"
#include "annProgress.h"
#include "annTransform.h"
#include "apExport.h"
#include "apStatus.h"
#include "utString.h"

// The accuracy of facets: the maximum distance between them and the surface, in the document's unit, and the maximum
// angle between neighbouring facets, in radians. 0 selects a default: for the chord 1/2000 of the diagonal of the
// shape's box, for the angle about 20 degrees.
struct annTolerance {
  double chord = 0;
  double angle = 0;
};

// The counts of a shape's elements.
struct annShapeContent {
  std::size_t solids = 0;
  std::size_t faces = 0;
};

// The exact geometry of a body, as an interface independent of the kernel that implements it. Distinct shapes may be
// used from several threads at once.
class VELPLATFORM_API annExactShape {
 public:
  virtual ~annExactShape();

  // Facets that approximate the shape; null and a failed status if this is impossible. If facets are returned with a
  // failed status, the status names the missing ones. With a `progress` the work can be cancelled: it then returns null
  // and a failed status soon.
  virtual std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus& status,
                                                annProgress* progress = nullptr) const = 0;

  // The minimum tolerance that is useful for this shape; smaller requests are raised to it. 0 for no bound.
  virtual annTolerance least_tolerance() const;

  virtual annShapeContent content() const = 0;

  // The box around the shape after a placement. None if it cannot be computed without facets or the shape is empty.
  virtual std::optional<annBox> box(const annTransform& placement) const = 0;

  // The format of the bytes that `save` writes, for example "brep".
  virtual utString kind() const = 0;
  virtual std::string save(apStatus& status) const = 0;
};
