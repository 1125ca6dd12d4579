#include "exaHidden.h"

#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>

void exaHidden::add(const TopoDS_Shape& shape) {
  if (!shape.IsNull() && TopExp_Explorer(shape, TopAbs_FACE).More()) shapes_.Add(shape);
}

TopoDS_Shape exaHidden::shown(const TopoDS_Shape& shape, std::vector<TopoDS_Shape>& removed) const {
  if (empty()) return shape;
  if (contains(shape)) {
    removed.push_back(shape);
    return {};
  }
  if (shape.ShapeType() != TopAbs_COMPOUND) return shape;
  TopoDS_Compound rest;
  BRep_Builder builder;
  builder.MakeCompound(rest);
  bool changed = false;
  // Members are compared by their placement in the group, whatever the placement of the group.
  for (TopoDS_Iterator it(shape, false, false); it.More(); it.Next()) {
    const TopoDS_Shape member = shown(it.Value(), removed);
    if (!member.IsNull()) builder.Add(rest, member);
    changed = changed || !member.IsEqual(it.Value());
  }
  return changed ? rest.Located(shape.Location()).Oriented(shape.Orientation()) : shape;
}
