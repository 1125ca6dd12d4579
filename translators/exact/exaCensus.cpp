#include "exaCensus.h"

#include <TopoDS_Iterator.hxx>
#include <algorithm>

exaCensus::Count exaCensus::of(const TopoDS_Shape& shape) {
  if (shape.ShapeType() == TopAbs_VERTEX) return {};
  const TopoDS_Shape plain = shape.Located(TopLoc_Location(), false);
  if (const Count* const known = counts_.Seek(plain)) return *known;
  Count count;
  if (shape.ShapeType() == TopAbs_SOLID) count.solids = 1;
  if (shape.ShapeType() == TopAbs_FACE) count.faces = 1;
  for (TopoDS_Iterator it(plain, false, false); it.More(); it.Next()) {
    const Count inner = of(it.Value());
    count.solids += inner.solids;
    count.faces += inner.faces;
    count.all += inner.all;
  }
  counts_.Bind(plain, count);
  return count;
}

std::string exaCensus::fault(double all) const {
  constexpr double least = 500'000, times = 16;
  const double most = std::max(least, times * counts_.Extent());
  if (all <= most) return "";
  return "shows the faces and edges of its parts more than " + std::to_string(static_cast<long long>(most)) + " times";
}
