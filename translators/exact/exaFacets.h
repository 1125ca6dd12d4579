#pragma once

#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>
#include <memory>

#include "annExactShape.h"
#include "exaExport.h"
#include "exaFaceColours.h"

// False for a face that is nothing but the facets that stand in its file.
VELEXACT_API bool exa_has_surface(const TopoDS_Face& face);

// False for a face that has no surface, no end or lies out of reach, and for one whose edges have no end.
bool exa_can_be_meshed(const TopoDS_Face& face);

// Triangles on the faces of a shape, with both tolerances greater than 0. Points that neighbouring faces share are one,
// so a solid gives a closed mesh; each corner has the normal of its own face's surface. A face without a surface keeps
// the facets that it has. `missing` receives how many
// faces got none. The shape stays as it is. Null when `progress`, which may be null, does not want it any more. What
// the kernel throws passes through.
std::shared_ptr<const annMesh> exa_facets(const TopoDS_Shape& shape, const exaFaceColours& colours,
                                          const annTolerance& tolerance, std::size_t& missing, annProgress* progress);
