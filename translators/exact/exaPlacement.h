#pragma once

#include <TopoDS_Shape.hxx>
#include <gp_Trsf.hxx>

#include "annTransform.h"
#include "exaExport.h"

// Placements of the document and of the kernel, whose locations turn and move and do nothing else, down to the last
// digits. Matrices of files have six digits and more: one whose columns are as long as each other and at right angles
// to a millionth turns and scales evenly, and one that scales by a factor this close to an expected one scales by that
// one. The turn closest to it is the location, and one that is next to none is none.

VELEXACT_API annTransform exa_transform(const gp_Trsf& trsf);

// Only for a transform that turns and moves, as locations of `exa_parts` do.
VELEXACT_API gp_Trsf exa_trsf(const annTransform& transform);

// A placement in two: first `shape`, the part that changes a form (it has no translation), then `location`, which
// turns and moves.
struct exaPlacementParts {
  annTransform location;
  annTransform shape;

  // Scales by the same factor in all directions, which is negative when it mirrors as well.
  bool is_even() const { return shape == annTransform::scaling(shape.m[0]); }
};
VELEXACT_API exaPlacementParts exa_parts(const annTransform& transform, double expected_factor = 1);

// The shape changed by a transform of any kind. Even scaling keeps surfaces what they are; an uneven one makes
// B-splines of them.
VELEXACT_API TopoDS_Shape exa_changed(const TopoDS_Shape& shape, const annTransform& transform);
