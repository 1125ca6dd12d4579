// Makes the sample file assembly.step: a bracket with two bolts in its holes, in millimetres, with names and colours.
// The bolts are two instances of one part. The file is identical on every machine.
//
//   make_assembly FILE

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepFilletAPI_MakeChamfer.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRep_Tool.hxx>
#include <ShapeUpgrade_UnifySameDomain.hxx>
#include <Standard_Failure.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <cmath>
#include <functional>
#include <gp_Ax2.hxx>
#include <iostream>
#include <numbers>

#include "apDynamicLibraryLoader.h"
#include "exaShape.h"
#include "velabsLibOutput.h"

namespace {

constexpr double length = 60, width = 40, thickness = 6, hole_radius = 4.2, hole_at = 38;

class Complaints : public velabsOutput {
 public:
  void message(velabsSeverity, const utString& text) override { std::cerr << text.str() << '\n'; }
  void progress(int) override {}
  bool cancelled() const override { return false; }
};

// Adds the edges for whose two ends `wanted` returns true.
template <typename Tool>
void add_edges(Tool& tool, const TopoDS_Shape& shape, double size,
               const std::function<bool(const gp_Pnt&, const gp_Pnt&)>& wanted) {
  TopTools_IndexedMapOfShape edges;
  TopExp::MapShapes(shape, TopAbs_EDGE, edges);
  for (int i = 1; i <= edges.Extent(); ++i) {
    const TopoDS_Edge edge = TopoDS::Edge(edges(i));
    if (BRep_Tool::Degenerated(edge)) continue;
    if (wanted(BRep_Tool::Pnt(TopExp::FirstVertex(edge)), BRep_Tool::Pnt(TopExp::LastVertex(edge)))) {
      tool.Add(size, edge);
    }
  }
}

bool is_near(double a, double b) {
  return std::abs(a - b) < 1e-6;
}

TopoDS_Shape bracket() {
  const TopoDS_Shape base = BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), gp_Pnt(length, width, thickness)).Shape();
  const TopoDS_Shape upright = BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), gp_Pnt(thickness, width, length)).Shape();
  TopoDS_Shape shape = BRepAlgoAPI_Fuse(base, upright).Shape();
  ShapeUpgrade_UnifySameDomain unify(shape);
  unify.Build();
  shape = unify.Shape();

  // Rounds the inner corner and the four outer corners of the plates.
  BRepFilletAPI_MakeFillet fillet(shape);
  add_edges(fillet, shape, 8, [](const gp_Pnt& a, const gp_Pnt& b) {
    return is_near(a.X(), thickness) && is_near(a.Z(), thickness) && is_near(b.X(), thickness) &&
           is_near(b.Z(), thickness);
  });
  add_edges(fillet, shape, 10, [](const gp_Pnt& a, const gp_Pnt& b) {
    const bool across = is_near(a.Y(), b.Y());
    const bool at_base = is_near(a.X(), length) && is_near(b.X(), length);
    const bool at_top = is_near(a.Z(), length) && is_near(b.Z(), length);
    return across && (at_base || at_top);
  });
  shape = fillet.Shape();

  const gp_Ax2 down(gp_Pnt(hole_at, width / 2, -1), gp_Dir(0, 0, 1));
  const gp_Ax2 along(gp_Pnt(-1, width / 2, hole_at), gp_Dir(1, 0, 0));
  shape = BRepAlgoAPI_Cut(shape, BRepPrimAPI_MakeCylinder(down, hole_radius, thickness + 2).Shape()).Shape();
  return BRepAlgoAPI_Cut(shape, BRepPrimAPI_MakeCylinder(along, hole_radius, thickness + 2).Shape()).Shape();
}

// The bottom of the head is in the plane z = 0; the shank points down.
TopoDS_Shape bolt() {
  constexpr double head_height = 5.3, across_corners = 15, shank_radius = 4, shank_length = 16;
  BRepBuilderAPI_MakePolygon hexagon;
  for (int i = 0; i < 6; ++i) {
    const double angle = i * std::numbers::pi / 3;
    hexagon.Add(gp_Pnt(across_corners / 2 * std::cos(angle), across_corners / 2 * std::sin(angle), 0));
  }
  hexagon.Close();
  const TopoDS_Shape head =
      BRepPrimAPI_MakePrism(BRepBuilderAPI_MakeFace(hexagon.Wire()).Face(), gp_Vec(0, 0, head_height));
  const gp_Ax2 down(gp_Pnt(0, 0, -shank_length), gp_Dir(0, 0, 1));
  const TopoDS_Shape shank = BRepPrimAPI_MakeCylinder(down, shank_radius, shank_length).Shape();
  const TopoDS_Shape shape = BRepAlgoAPI_Fuse(head, shank).Shape();
  BRepFilletAPI_MakeChamfer chamfer(shape);
  add_edges(chamfer, shape, 0.8, [](const gp_Pnt& a, const gp_Pnt& b) {
    return is_near(a.Z(), -shank_length) && is_near(b.Z(), -shank_length);
  });
  return chamfer.Shape();
}

// The walls of the holes have another colour than the plates.
exaFaceColours colours_of_bracket(const TopoDS_Shape& shape) {
  constexpr annColour bore{0.85F, 0.55F, 0.15F};
  exaFaceColours colours;
  for (TopExp_Explorer face(shape, TopAbs_FACE); face.More(); face.Next()) {
    bool wall = true;
    for (TopExp_Explorer corner(face.Current(), TopAbs_VERTEX); corner.More(); corner.Next()) {
      const gp_Pnt at = BRep_Tool::Pnt(TopoDS::Vertex(corner.Current()));
      const double off_base = std::hypot(at.X() - hole_at, at.Y() - width / 2);
      const double off_upright = std::hypot(at.Z() - hole_at, at.Y() - width / 2);
      wall = wall && (is_near(off_base, hole_radius) || is_near(off_upright, hole_radius));
    }
    colours.add(wall ? &bore : nullptr);
  }
  return colours;
}

annDocument assembly() {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  annNode& top = document.root.add_child("assembly");
  annNode& plate = top.add_child("bracket");
  plate.colour = annColour{0.62F, 0.65F, 0.7F};
  const TopoDS_Shape shape = bracket();
  plate.body.shape = std::make_shared<exaShape>(shape, colours_of_bracket(shape));

  const auto screw = std::make_shared<exaShape>(bolt());
  const annTransform places[] = {{{1, 0, 0, hole_at, 0, 1, 0, width / 2, 0, 0, 1, thickness}},
                                 {{0, 0, 1, thickness, 0, 1, 0, width / 2, -1, 0, 0, hole_at}}};
  for (const annTransform& place : places) {
    annNode& node = top.add_child("bolt");
    node.colour = annColour{0.2F, 0.45F, 0.75F};
    node.transform = place;
    node.body.shape = screw;
  }
  return document;
}

bool write(const annDocument& document, const char* file) {
  apStatus status;
  const auto library = apDynamicLibraryLoader().load(apPathName(apString(VEL_STEP_WRITER)), status);
  if (!library) return false;
  const auto wrapper = reinterpret_cast<velabsWriteWrapper>(library->proc_address("velabs_write_wrapper", status));
  velabsOfStream stream{utString(file)};
  Complaints complaints;
  const std::unique_ptr<velabsLibOutput> writer(wrapper(&stream, nullptr));
  // Without curves in the parameters of surfaces, the file has half the size.
  velTableInstance resources;
  resources.add_resource("TRIM", "model space");
  return writer->write(document, resources, complaints) == velabsDONE && stream.commit();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_assembly FILE\n";
    return 2;
  }
  try {
    return write(assembly(), argv[1]) ? 0 : 1;
  } catch (const Standard_Failure& failure) {
    std::cerr << failure.GetMessageString() << '\n';
    return 1;
  }
}
