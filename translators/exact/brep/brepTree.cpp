#include "brepTree.h"

#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <algorithm>

#include "exaFacets.h"
#include "exaPlacement.h"

namespace {

bool is_part(const TopoDS_Shape& shape) {
  return shape.ShapeType() <= TopAbs_SOLID;
}

}  // namespace

bool brepTree::has_faces(const TopoDS_Shape& shape) {
  return census_.of(shape).faces > 0;
}

// True for a compound of compounds or of several solids. Any other compound is one part made of loose faces.
bool brepTree::is_assembly(const TopoDS_Shape& shape) {
  if (shape.ShapeType() != TopAbs_COMPOUND) return false;
  std::size_t solids = 0;
  for (TopoDS_Iterator it(shape); it.More(); it.Next()) {
    if (it.Value().ShapeType() == TopAbs_COMPOUND && has_faces(it.Value())) return true;
    if (is_part(it.Value())) ++solids;
  }
  return solids > 1;
}

bool brepTree::read(const TopoDS_Shape& shape, annNode& root) {
  std::vector<Open> open{{shape, &root}};
  while (!open.empty() && fault_.empty() && !output_.cancelled()) {
    const Open current = open.back();
    open.pop_back();
    add(current, open);
  }
  if (output_.cancelled()) return false;
  if (!fault_.empty()) {
    output_.message(velabsERROR, utString("it " + fault_));
    return false;
  }
  if (shape.ShapeType() == TopAbs_COMPOUND && !TopoDS_Iterator(shape).More()) return true;
  if (left_out_ > 0) output_.message(velabsNOTE, "curves and points without a surface are left out");
  if (found_) return true;
  output_.message(velabsERROR, options_.types == velTYPE_ALL
                                   ? "it holds no solid, shell or face"
                                   : "it holds nothing of the kinds that ENTITY_TYPES asks for");
  return false;
}

void brepTree::add(const Open& current, std::vector<Open>& open) {
  if (!has_faces(current.shape)) {
    ++left_out_;
    return;
  }
  const TopoDS_Shape here = current.shape.Located(TopLoc_Location(), false);
  const bool assembly = is_assembly(here);
  const annBody body = assembly ? annBody() : body_of(here);
  if (!assembly && body.empty()) return;
  annNode& node = current.parent->add_child("");
  node.transform = exa_transform(current.shape.Location().Transformation());
  node.body = body;
  if (!assembly) return;

  const std::size_t first = open.size();
  for (TopoDS_Iterator it(here); it.More(); it.Next()) {
    if (is_part(it.Value())) open.push_back({it.Value(), &node});
  }
  const TopoDS_Shape loose = loose_in(here);
  if (has_faces(loose)) open.push_back({loose, &node});
  // `open` is a stack, so reverse to visit the members in file order.
  std::reverse(open.begin() + static_cast<std::ptrdiff_t>(first), open.end());
}

// Loose faces beside parts become a separate part, which all instances of the assembly share.
TopoDS_Shape brepTree::loose_in(const TopoDS_Shape& assembly) {
  if (const TopoDS_Shape* const known = loose_.Seek(assembly)) return *known;
  TopoDS_Compound loose;
  BRep_Builder builder;
  builder.MakeCompound(loose);
  for (TopoDS_Iterator it(assembly); it.More(); it.Next()) {
    if (!is_part(it.Value())) builder.Add(loose, it.Value());
  }
  loose_.Bind(assembly, loose);
  return loose;
}

annBody brepTree::body_of(const TopoDS_Shape& part) {
  if (const annBody* const known = bodies_.Seek(part)) return *known;
  in_bodies_ += census_.of(part).all;
  fault_ = census_.fault(in_bodies_);
  if (!fault_.empty()) return {};
  const TopoDS_Shape shape = exa_wanted(part, options_.types);
  const annBody body = has_faces(shape) ? made_of(shape) : annBody();
  found_ = found_ || !body.empty();
  bodies_.Bind(part, body);
  return body;
}

annBody brepTree::made_of(const TopoDS_Shape& shape) const {
  auto exact = std::make_shared<exaShape>(shape, exaFaceColours(), options_.allow_gaps);
  for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) {
    if (exa_has_surface(TopoDS::Face(it.Current()))) return {nullptr, exact};
  }
  // A part of facets only becomes a mesh: the kernel crashes in most operations on faces without surfaces.
  apStatus status;
  if (auto mesh = exact->facets({}, status, nullptr)) return {mesh, nullptr};
  return {nullptr, exact};
}
