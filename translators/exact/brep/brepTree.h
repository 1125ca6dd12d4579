#pragma once

#include <NCollection_DataMap.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <TopoDS_Shape.hxx>

#include "annNode.h"
#include "exaReadOptions.h"
#include "exaShape.h"
#include "velabsOutput.h"

// Makes nodes of a shape.
class brepTree {
 public:
  brepTree(const exaReadOptions& options, velabsOutput& output) : options_(options), output_(output) {}

  // False when the work is cancelled, and, with a message, when the shape has no faces.
  bool read(const exaShape& shape, annNode& root);

 private:
  struct Open {
    TopoDS_Shape shape;
    annNode* parent;
  };
  void add(const Open& current, std::vector<Open>& open);
  void add_body(const TopoDS_Shape& shape, annNode& node);
  bool is_wanted(const TopoDS_Shape& shape) const;

  exaReadOptions options_;
  velabsOutput& output_;
  NCollection_DataMap<TopoDS_Shape, std::shared_ptr<const exaShape>, TopTools_ShapeMapHasher> bodies_;
  std::size_t left_out_ = 0;
};
