#pragma once

#include <TopTools_MapOfShape.hxx>
#include <TopoDS_Shape.hxx>
#include <cstddef>

#include "exaExport.h"

// The bodies that a file hides: solids, shells, loose faces and groups of them. Faces of a shell, edges and vertices
// are not bodies.
class VELEXACT_API exaHidden {
 public:
  // Shapes without faces, for example curves, are ignored.
  void add(const TopoDS_Shape& shape);

  bool contains(const TopoDS_Shape& shape) const { return shapes_.Contains(shape); }

  // The shape without its hidden bodies; null when it is hidden itself. Adds the number of hidden bodies to `count`.
  TopoDS_Shape shown(const TopoDS_Shape& shape, std::size_t& count) const;

 private:
  TopTools_MapOfShape shapes_;
};
