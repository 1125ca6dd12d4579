#pragma once

#include <optional>

#include <TopoDS_Shape.hxx>
#include <gp_Trsf.hxx>

#include "annTransform.h"
#include "exaExport.h"

// Placements of the document and of the kernel, whose locations turn and move and do nothing else.

VELEXACT_API annTransform exa_transform(const gp_Trsf& trsf);

// Only for a transform that turns and moves.
VELEXACT_API gp_Trsf exa_trsf(const annTransform& transform);

// A placement in two: first `shape`, the part that changes a form (it has no translation), then `location`, which
// turns and moves.
struct exaPlacementParts {
  annTransform location;
  annTransform shape;
};
VELEXACT_API exaPlacementParts exa_parts(const annTransform& transform);

// The shape changed by a transform of any kind. Even scaling keeps surfaces what they are; an uneven one makes
// B-splines of them.
VELEXACT_API TopoDS_Shape exa_changed(const TopoDS_Shape& shape, const annTransform& transform);
