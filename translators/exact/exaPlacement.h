#pragma once

#include <TopoDS_Shape.hxx>
#include <gp_Trsf.hxx>

#include "annTransform.h"
#include "exaExport.h"

// Conversion between placements of the document and of the kernel. Locations of the kernel are exact rotations and
// translations. Matrices in files have six digits or more, so they are rounded: columns of equal length and at right
// angles to within a millionth are a uniform scale and a rotation. A factor this close to an expected one becomes the
// expected one. The location is the closest rotation; one that is almost the identity becomes the identity.

VELEXACT_API annTransform exa_transform(const gp_Trsf& trsf);

// Only for a transform that rotates and translates, as locations of `exa_parts` do.
VELEXACT_API gp_Trsf exa_trsf(const annTransform& transform);

// A placement in two steps: first `shape`, which scales or shears and has no translation, then `location`, which
// rotates and translates.
struct exaPlacementParts {
  annTransform location;
  annTransform shape;

  // True for a uniform scale, which is negative when it also mirrors.
  bool is_even() const { return shape == annTransform::scaling(shape.m[0]); }
};
VELEXACT_API exaPlacementParts exa_parts(const annTransform& transform, double expected_factor = 1);

// Applies any transform to a shape. A uniform scale keeps the surface types; other ones turn surfaces into B-splines.
VELEXACT_API TopoDS_Shape exa_changed(const TopoDS_Shape& shape, const annTransform& transform);
