#pragma once

#include <NCollection_DataMap.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <TopoDS_Shape.hxx>
#include <string>

#include "exaExport.h"

// How often the kinds of shapes stand in a shape. Each is looked into once, however often it stands there: a small file
// can repeat a shell in a solid and a face in the shell so often that no walk through all of them would end.
class VELEXACT_API exaCensus {
 public:
  struct Count {
    double solids = 0;
    double faces = 0;
    double all = 1;  // down to the vertices, with the shape itself
  };
  // A shape that stands in itself is none of the kernel's; one that is very deep has to be kept away (see exaNesting).
  Count of(const TopoDS_Shape& shape);

  // What is wrong with parts whose shapes come to `all`, as the end of a sentence that begins with "it"; nothing when
  // they can be walked through. An edge stands in some faces and a face in two solids: even in a grid of cells that
  // share them, all come to eight times the shapes that were looked into.
  std::string fault(double all) const;

 private:
  NCollection_DataMap<TopoDS_Shape, Count, TopTools_ShapeMapHasher> counts_;
};
