#pragma once

#include <TopoDS_Shape.hxx>
#include <string>

#include "annMesh.h"
#include "annProgress.h"
#include "exaExport.h"
#include "exaFaceColours.h"

// A mesh as planar faces that share the edges between them. Faces that hang together become a shell, one that is closed
// becomes a solid.
struct VELEXACT_API exaPlanarShape {
  TopoDS_Shape shape;  // null when there is no face with an area
  exaFaceColours colours;
  std::size_t left_out = 0;  // faces without an area
};

// What the kernel throws passes through. Once the work is not wanted any more there is no shape.
VELEXACT_API exaPlanarShape exa_planar_shape(const annMesh& mesh, annProgress& progress);
