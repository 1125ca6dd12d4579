#pragma once

#include <TopTools_MapOfShape.hxx>
#include <TopoDS_Shape.hxx>
#include <cstddef>

#include "exaExport.h"

// The bodies that a file hides: solids, shells, loose faces and groups of them. Faces of a shell and what else bounds a
// body are none.
class VELEXACT_API exaHidden {
 public:
  // Shapes without faces, curves for instance, are ignored.
  void add(const TopoDS_Shape& shape);

  bool contains(const TopoDS_Shape& shape) const { return shapes_.Contains(shape); }

  // What is left of a shape without its hidden bodies; null when it is hidden itself. `count` grows by the hidden ones.
  TopoDS_Shape shown(const TopoDS_Shape& shape, std::size_t& count) const;

 private:
  TopTools_MapOfShape shapes_;
};
