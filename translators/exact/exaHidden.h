#pragma once

#include <TopTools_MapOfShape.hxx>
#include <TopoDS_Shape.hxx>
#include <vector>

#include "exaExport.h"

// The bodies that a file hides: solids, shells, loose faces and groups of them. Faces of a shell, edges and vertices
// are not bodies.
class VELEXACT_API exaHidden {
 public:
  // Shapes without faces, for example curves, are ignored.
  void add(const TopoDS_Shape& shape);

  bool empty() const { return shapes_.IsEmpty(); }
  bool contains(const TopoDS_Shape& shape) const { return shapes_.Contains(shape); }

  // The shape without its hidden bodies; null when it is hidden itself. Appends what it removes to `removed`.
  TopoDS_Shape shown(const TopoDS_Shape& shape, std::vector<TopoDS_Shape>& removed) const;

 private:
  TopTools_MapOfShape shapes_;
};
