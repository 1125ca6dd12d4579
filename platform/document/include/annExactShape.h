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

// How closely facets follow an exact shape: the largest distance between them and the surface, in the document's unit,
// and the largest angle between neighbouring facets, in radians. 0 leaves it to the shape: the chord then is a two
// thousandth of its size, the diagonal of its box, the angle about 20 degrees.
struct annTolerance {
  double chord = 0;
  double angle = 0;
};

// What a shape is made of.
struct annShapeContent {
  std::size_t solids = 0;
  std::size_t faces = 0;
};

// The exact form of a body, known to the document by what it can do and not by how it is held. Distinct shapes may be
// asked from several threads at once.
class VELPLATFORM_API annExactShape {
 public:
  virtual ~annExactShape();

  // Facets that approximate the shape; null and a failed status when it cannot be done. A failed status beside facets
  // says which of them are missing. With a `progress` it can be stopped: null, and a failed status, come back soon.
  virtual std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus& status,
                                                annProgress* progress = nullptr) const = 0;

  // The closest that facets can sensibly follow the shape: what is asked for below it is raised to it. 0 for no bound.
  virtual annTolerance least_tolerance() const;

  virtual annShapeContent content() const = 0;

  // The box around the shape where a placement puts it; none when that is not known without facets or there is nothing
  // to enclose.
  virtual std::optional<annBox> box(const annTransform& placement) const = 0;

  // The kind of bytes that `save` writes, "brep" for instance.
  virtual utString kind() const = 0;
  virtual std::string save(apStatus& status) const = 0;
};
