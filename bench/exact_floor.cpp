// The kernel without our code: the lower bound for a translation of exact shapes. Also creates the model to measure
// with.
//   exact_floor make PARTS OUT.step
//   exact_floor translate IN.step OUT.stl CHORD DEGREES

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRep_Builder.hxx>
#include <Interface_Static.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <STEPControl_Reader.hxx>
#include <STEPControl_Writer.hxx>
#include <StlAPI_Writer.hxx>
#include <TopoDS_Compound.hxx>
#include <cstdlib>
#include <numbers>
#include <string>

namespace {

gp_Ax2 axis_at(double x, double y, double z) {
  return gp_Ax2(gp_Pnt(x, y, z), gp_Dir(0, 0, 1));
}

// A plate with holes and a groove around each hole; each plate is different.
TopoDS_Shape plate(int number) {
  const double length = 60 + number, width = 40, height = 12;
  TopoDS_Shape shape = BRepPrimAPI_MakeBox(length, width, height);
  for (int i = 0; i < 2; ++i) {
    const double x = i ? length - 12 : 12, y = width / 2;
    shape = BRepAlgoAPI_Cut(shape, BRepPrimAPI_MakeCylinder(axis_at(x, y, -1), 4 + number * 0.01, height + 2));
    shape = BRepAlgoAPI_Cut(shape, BRepPrimAPI_MakeTorus(axis_at(x, y, height), 8, 1.5));
  }
  gp_Trsf place;
  place.SetTranslation(gp_Vec(number % 15 * 300, number / 15 * 60, 0));
  return shape.Moved(place);
}

bool make(int parts, const char* out) {
  TopoDS_Compound model;
  BRep_Builder builder;
  builder.MakeCompound(model);
  for (int i = 0; i < parts; ++i) builder.Add(model, plate(i));
  STEPControl_Writer writer;
  Interface_Static::SetIVal("write.step.assembly", 1);
  return writer.Transfer(model, STEPControl_AsIs) == IFSelect_RetDone && writer.Write(out) == IFSelect_RetDone;
}

bool translate(const char* in, const char* out, double chord, double degrees) {
  STEPControl_Reader reader;
  if (reader.ReadFile(in) != IFSelect_RetDone) return false;
  reader.TransferRoots();
  const TopoDS_Shape shape = reader.OneShape();
  BRepMesh_IncrementalMesh(shape, chord, false, degrees * std::numbers::pi / 180, false);
  StlAPI_Writer writer;
  writer.ASCIIMode() = false;
  return writer.Write(shape, out);
}

}  // namespace

int main(int argc, char** argv) {
  Message::DefaultMessenger()->ChangePrinters().Clear();
  const std::string what = argc > 1 ? argv[1] : "";
  if (what == "make" && argc == 4) return make(std::atoi(argv[2]), argv[3]) ? 0 : 1;
  if (what == "translate" && argc == 6) {
    return translate(argv[2], argv[3], std::atof(argv[4]), std::atof(argv[5])) ? 0 : 1;
  }
  return 2;
}
