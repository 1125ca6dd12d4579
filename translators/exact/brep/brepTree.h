#pragma once

#include <NCollection_DataMap.hxx>
#include <TopTools_OrientedShapeMapHasher.hxx>
#include <TopoDS_Shape.hxx>

#include "annNode.h"
#include "exaCensus.h"
#include "exaReadOptions.h"
#include "exaShape.h"
#include "velabsOutput.h"

// Builds the node tree of a shape.
class brepTree {
 public:
  brepTree(const exaReadOptions& options, velabsOutput& output) : options_(options), output_(output) {}

  // False when the work is cancelled, or, with a message, when the shape has no faces or repeats them too often.
  bool read(const TopoDS_Shape& shape, annNode& root);

 private:
  struct Open {
    TopoDS_Shape shape;
    annNode* parent;
  };
  bool has_faces(const TopoDS_Shape& shape);
  bool is_assembly(const TopoDS_Shape& shape);
  void add(const Open& current, std::vector<Open>& open);
  TopoDS_Shape loose_in(const TopoDS_Shape& assembly);
  // The body of a part, limited to the requested entity types. Empty when nothing is left, or on an error, which is
  // then in `fault_`.
  annBody body_of(const TopoDS_Shape& part);
  annBody made_of(const TopoDS_Shape& shape) const;

  exaReadOptions options_;
  velabsOutput& output_;
  NCollection_DataMap<TopoDS_Shape, annBody, TopTools_OrientedShapeMapHasher> bodies_;
  NCollection_DataMap<TopoDS_Shape, TopoDS_Shape, TopTools_OrientedShapeMapHasher> loose_;  // keyed by assembly
  exaCensus census_;
  double in_bodies_ = 0;
  std::string fault_;
  bool found_ = false;
  std::size_t left_out_ = 0;
};
