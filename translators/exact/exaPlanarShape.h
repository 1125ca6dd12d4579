#pragma once

#include <TopoDS_Shape.hxx>
#include <string>

#include "annMesh.h"
#include "annProgress.h"
#include "exaExport.h"
#include "exaFaceColours.h"

// A mesh as planar faces with shared edges. Connected faces become a shell, and a closed shell becomes a solid.
struct VELEXACT_API exaPlanarShape {
  TopoDS_Shape shape;  // null when no face has an area
  exaFaceColours colours;
  std::size_t left_out = 0;  // faces without an area
};

// Exceptions of the kernel are passed on. Returns no shape when the work is cancelled.
VELEXACT_API exaPlanarShape exa_planar_shape(const annMesh& mesh, annProgress& progress);
