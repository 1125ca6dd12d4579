#pragma once

#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <memory>

#include "annExactShape.h"
#include "exaExport.h"
#include "exaFaceColours.h"

// False for a face that consists only of facets stored in the file.
VELEXACT_API bool exa_has_surface(const TopoDS_Face& face);

// False for a face without a surface, for one that is infinite or too far away, and for one with infinite edges.
bool exa_can_be_meshed(const TopoDS_Face& face);

// Triangulates the faces of a shape; both tolerances must be greater than 0. Neighbouring faces share their points, so
// a solid gives a closed mesh. Each corner has the normal of its face's surface. A face without a surface keeps the
// facets that it has. `missing` receives the number of faces without triangles. The shape is not changed. Null when
// `progress`, which may be null, cancels the work. Exceptions of the kernel are passed on.
std::shared_ptr<const annMesh> exa_facets(const TopoDS_Shape& shape, const exaFaceColours& colours,
                                          const annTolerance& tolerance, std::size_t& missing, annProgress* progress);
