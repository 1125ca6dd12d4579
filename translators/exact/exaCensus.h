#pragma once

#include <NCollection_DataMap.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <TopoDS_Shape.hxx>
#include <string>

#include "exaExport.h"

// Counts the shapes inside a shape by kind. Each distinct shape is visited once: in a small file, nested repetitions
// of shells and faces can make a full traversal endless.
class VELEXACT_API exaCensus {
 public:
  struct Count {
    double solids = 0;
    double faces = 0;
    double all = 1;  // down to the vertices, including the shape itself
  };
  // The kernel makes no shapes that contain themselves. Deeply nested ones must be rejected before (see exaNesting).
  Count of(const TopoDS_Shape& shape);

  // The error about parts whose shapes amount to `all`, as the end of a sentence that begins with "it"; empty when
  // they can be traversed. An edge is shared by a few faces and a face by two solids: even in a grid of cells that
  // share them, `all` is about eight times the number of distinct shapes.
  std::string fault(double all) const;

 private:
  NCollection_DataMap<TopoDS_Shape, Count, TopTools_ShapeMapHasher> counts_;
};
