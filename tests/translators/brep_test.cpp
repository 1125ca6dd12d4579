#include <gtest/gtest.h>
#include <sys/resource.h>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <BinTools.hxx>
#include <Geom2d_BSplineCurve.hxx>
#include <Geom2d_BezierCurve.hxx>
#include <Geom2d_TrimmedCurve.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_BSplineSurface.hxx>
#include <Geom_BezierCurve.hxx>
#include <Geom_BezierSurface.hxx>
#include <Geom_Circle.hxx>
#include <Geom_OffsetCurve.hxx>
#include <Geom_OffsetSurface.hxx>
#include <Geom_Plane.hxx>
#include <Geom_RectangularTrimmedSurface.hxx>
#include <Geom_SphericalSurface.hxx>
#include <Geom_SurfaceOfLinearExtrusion.hxx>
#include <Geom_SurfaceOfRevolution.hxx>
#include <Geom_TrimmedCurve.hxx>
#include <Poly_Polygon3D.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <algorithm>
#include <atomic>
#include <sstream>
#include <tuple>

#include "OtherProcess.h"
#include "exaBrepCheck.h"
#include "exaSession.h"
#include "exaShape.h"

namespace {

class Parts {
 public:
  Parts() { builder_.MakeCompound(compound_); }

  void add(const Handle(Geom_Curve) & curve) {
    TopoDS_Edge edge;
    builder_.MakeEdge(edge, curve, 1e-7);
    builder_.Range(edge, 0.1, 0.9);
    TopoDS_Vertex vertex;
    builder_.MakeVertex(vertex, curve->Value(0.5), 1e-7);
    builder_.UpdateVertex(vertex, 0.5, edge, 1e-6);
    builder_.Add(edge, vertex.Oriented(TopAbs_INTERNAL));
    builder_.Add(compound_, edge);
  }
  void add(const Handle(Geom2d_Curve) & curve) {
    const Handle(Geom_Surface) plane = new Geom_Plane(gp_Pnt(), gp_Dir(0, 0, 1));
    TopoDS_Face face;
    builder_.MakeFace(face, plane, 1e-7);
    TopoDS_Edge edge;
    builder_.MakeEdge(edge);
    builder_.UpdateEdge(edge, curve, plane, TopLoc_Location(), 1e-6);
    TopoDS_Vertex vertex;
    builder_.MakeVertex(vertex, gp_Pnt(), 1e-7);
    builder_.UpdateVertex(vertex, 0.25, edge, face, 1e-6);
    builder_.UpdateVertex(vertex, 0.5, 0.75, face, 1e-6);
    builder_.Add(edge, vertex.Oriented(TopAbs_INTERNAL));
    TopoDS_Wire wire;
    builder_.MakeWire(wire);
    builder_.Add(wire, edge);
    builder_.Add(face, wire);
    builder_.Add(compound_, face);
  }
  void add(const Handle(Geom_Surface) & surface) {
    TopoDS_Face face;
    builder_.MakeFace(face, surface, 1e-7);
    builder_.Add(compound_, face);
  }
  void add(const Handle(Poly_Polygon3D) & polygon) {
    TopoDS_Edge edge;
    builder_.MakeEdge(edge);
    builder_.UpdateEdge(edge, polygon);
    builder_.Add(compound_, edge);
  }
  void add(const TopoDS_Shape& shape) { builder_.Add(compound_, shape); }
  const TopoDS_Shape& all() const { return compound_; }

 private:
  BRep_Builder builder_;
  TopoDS_Compound compound_;
};

// A shape whose bytes hold everything that has a length, a choice or a reference.
TopoDS_Shape everything() {
  TColgp_Array1OfPnt poles(1, 4);
  TColgp_Array1OfPnt2d poles2d(1, 4);
  TColgp_Array2OfPnt net(1, 4, 1, 4);
  TColStd_Array1OfReal weights(1, 4), knots(1, 2), round_knots(1, 5);
  TColStd_Array1OfInteger times(1, 2), round_times(1, 5);
  TColStd_Array2OfReal net_weights(1, 4, 1, 4);
  for (int i = 1; i <= 4; ++i) {
    poles(i) = gp_Pnt(i, i * i, i % 3);
    poles2d(i) = gp_Pnt2d(i, i * i);
    weights(i) = i;
    for (int j = 1; j <= 4; ++j) {
      net(i, j) = gp_Pnt(i, j, i * j);
      net_weights(i, j) = i;
    }
  }
  for (int i = 1; i <= 5; ++i) {
    round_knots(i) = i;
    round_times(i) = 1;
  }
  knots(1) = 0;
  knots(2) = 1;
  times.Init(4);

  const gp_Ax2 axes(gp_Pnt(1, 2, 3), gp_Dir(0, 0, 1));
  const Handle(Geom_BSplineCurve) spline = new Geom_BSplineCurve(poles, weights, knots, times, 3);
  const Handle(Geom2d_BSplineCurve) spline2d = new Geom2d_BSplineCurve(poles2d, weights, knots, times, 3);
  const Handle(Geom_BSplineSurface) spline_surface = new Geom_BSplineSurface(net, knots, knots, times, times, 3, 3);
  Parts parts;
  parts.add(new Geom_BezierCurve(poles, weights));
  parts.add(new Geom_BSplineCurve(poles, knots, times, 3));
  parts.add(new Geom_BSplineCurve(poles, weights, round_knots, round_times, 2, true));
  parts.add(new Geom_TrimmedCurve(spline, 0.1, 0.9));
  parts.add(new Geom_OffsetCurve(new Geom_Circle(axes, 2), 0.5, gp_Dir(0, 0, 1)));
  parts.add(new Geom2d_BezierCurve(poles2d));
  parts.add(new Geom2d_BSplineCurve(poles2d, weights, round_knots, round_times, 2, true));
  parts.add(new Geom2d_TrimmedCurve(spline2d, 0.1, 0.9));
  parts.add(new Geom_BezierSurface(net, net_weights));
  parts.add(new Geom_BSplineSurface(net, net_weights, knots, knots, times, times, 3, 3));
  parts.add(new Geom_RectangularTrimmedSurface(spline_surface, 0.1, 0.9, 0.2, 0.8));
  parts.add(new Geom_OffsetSurface(new Geom_SphericalSurface(axes, 2), 0.5));
  parts.add(new Geom_SurfaceOfLinearExtrusion(spline, gp_Dir(0, 0, 1)));
  parts.add(new Geom_SurfaceOfRevolution(spline, gp_Ax1(gp_Pnt(9, 9, 9), gp_Dir(0, 0, 1))));
  TColStd_Array1OfReal parameters(1, 4);
  parameters.Init(1);
  parts.add(new Poly_Polygon3D(poles, parameters));

  const TopoDS_Shape torus = BRepPrimAPI_MakeTorus(5, 1).Shape();
  BRepMesh_IncrementalMesh(torus, 0.5);
  TopLoc_Location place;
  BRep_Tool::Triangulation(TopoDS::Face(TopExp_Explorer(torus, TopAbs_FACE).Current()), place)->ComputeNormals();
  gp_Trsf step, turn;
  step.SetTranslation(gp_Vec(1, 2, 3));
  turn.SetRotation(gp::OZ(), 1);
  const TopLoc_Location a(step), b(turn);
  for (const TopLoc_Location& location : {a, b, a * b, (b * a).Powered(-2), b.Powered(3)}) {
    parts.add(torus.Moved(location));
  }
  return parts.all();
}

std::string text_of(const TopoDS_Shape& shape, int version) {
  std::ostringstream bytes;
  BRepTools::Write(shape, bytes, true, true, static_cast<TopTools_FormatVersion>(version));
  return bytes.str();
}
std::string binary_of(const TopoDS_Shape& shape, int version) {
  std::ostringstream bytes;
  BinTools::Write(shape, bytes, true, true, static_cast<BinTools_FormatVersion>(version));
  return bytes.str();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, text.npos) << from;
  return at == text.npos ? text : text.replace(at, from.size(), to);
}

long peak_megabytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

}  // namespace

// What counts is the memory that is in use at once, and a sanitizer keeps what was freed for a while.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() {  // NOLINT
  return "quarantine_size_mb=16";
}

TEST(Brep, WhatTheKernelWritesIsWhole) {
  const TopoDS_Shape shape = everything();
  for (int version = 1; version <= 4; ++version) {
    EXPECT_EQ(exa_brep_fault(binary_of(shape, version)), "") << version;
  }
  for (int version = 1; version <= 3; ++version) EXPECT_EQ(exa_brep_fault(text_of(shape, version)), "") << version;
  apStatus status;
  const std::string stored = exaShape(shape).save(status);
  EXPECT_TRUE(exa_parse(stored, status)) << status.failure().str();
  EXPECT_EQ(exa_brep_fault("DBRep_DrawableShape\n" + replaced(text_of(shape, 1), "\nCASCADE", "\r\nCASCADE")), "");
}

TEST(Brep, CountsAndReferencesThatLieAreNamedWithTheirPlace) {
  const std::string text = text_of(everything(), 1);
  const struct {
    const char *from, *to, *fault;
  } cases[] = {
      {"V1, (c)", "V9, (c)", "no line names a version"},
      {"Locations ", "Locations 2000000000 ", "it cannot hold 2000000000 of them"},
      {"\n2  2 1 1 1 0", "\n2  2 1 9 1 0", "it refers to the location 9"},
      {"\n2  2 1 1 1 0", "\n2  2 1 1 2000000000 0", "it is made of too many others"},
      {"\n7 0 0  3 4 2", "\n7 0 0  3 2000000000 2", "it cannot have 2000000000 poles"},
      {"\n7 0 0  3 4 2", "\n7 0 0  3 4 -1", "it cannot have -1 knots"},
      {"\n7 0 0  3 4 2", "\n7 0 0  30 4 2", "it cannot have the degree 30"},
      {"\n7 0 0  3 4 2", "\n7 0 0  2 4 2", "its knots are for 5 poles, but it has 4"},
      {"\n7 0 0  3 4 2", "\n77 0 0  3 4 2", "77 is no kind of curve"},
      {"\nSurfaces", "\nFurfaces", "\"Surfaces\" should stand here, not \"Furfaces\""},
      {"\n+1 0", "\n+9999 0", "which is not there yet"},
  };
  for (const auto& it : cases) {
    const std::string fault = exa_brep_fault(replaced(text, it.from, it.to));
    EXPECT_NE(fault.find(it.fault), fault.npos) << fault;
    EXPECT_NE(fault.find(", line "), fault.npos) << fault;
  }
  std::string nested = "CASCADE Topology V1, (c) Matra-Datavision\nLocations 0\nCurve2ds 0\nCurves 1\n";
  for (int i = 0; i < 100'000; ++i) nested += "8 0 1 ";
  EXPECT_NE(exa_brep_fault(nested + "1 0 0 0 1 0 0").find("based on each other"), nested.npos);
  EXPECT_NE(exa_brep_fault(replaced(nested, "Curves", std::string(1000, 'x'))).find("a word of 1000"), nested.npos);
}

TEST(Brep, ShapesThatComeToTooMuchAreRefused) {
  const std::string head =
      "CASCADE Topology V1, (c) Matra-Datavision\nLocations 0\nCurve2ds 0\nCurves 0\nPolygon3D 0\n"
      "PolygonOnTriangulations 0\nSurfaces 0\nTriangulations 0\nTShapes ";
  for (const auto& [count, times, fault] : {std::tuple{60, 2, "times"}, {100'000, 1, "deep"}}) {
    std::string text = head + std::to_string(count);
    for (int left = count; left > 0; --left) {
      text += "\nCo\n0000000\n";
      for (int i = 0; i < times && left < count; ++i) text += '+' + std::to_string(left + 1) + " 0 ";
      text += '*';
    }
    apStatus status;
    EXPECT_FALSE(exa_parse(text + "\n+1 0\n", status));
    EXPECT_NE(status.failure().str().find(fault), std::string::npos) << status.failure().str();
  }
}

TEST(Brep, DamagedBytesTakeLittleMemory) {
  const TopoDS_Shape shape = everything();
  const long before = peak_megabytes();
  std::size_t refused = 0, tried = 0;
  auto try_bytes = [&](const std::string& bytes) {
    apStatus status;
    refused += exa_parse(bytes, status) ? 0U : 1U;
    ++tried;
  };
  const std::string text = text_of(shape, 3), binary = binary_of(shape, 4);
  for (std::size_t at = text.find("Locations"); at < text.size(); at = text.find_first_of(" \n", at + 150)) {
    const std::size_t end = std::min(text.find_first_of(" \n", at + 1), text.size());
    try_bytes(text.substr(0, at + 1) + "2000000000" + text.substr(end));
  }
  for (std::size_t at = binary.find("Locations"); at + 4 < binary.size(); at += 61) {
    std::string damaged = binary;
    damaged.replace(at, 4, {'\x00', '\x94', '\x35', '\x77'});
    try_bytes(damaged);
    try_bytes(binary.substr(0, at));
  }
  EXPECT_GT(refused, tried / 2);
  EXPECT_LT(peak_megabytes() - before, 300);
}

TEST(Brep, ABreakdownIsToldOnceAndAnotherFileIsNotBlamedForIt) {
  const auto bad = bad_ends(1, 20, [](std::size_t) {
    const std::string first = exa_failure_of([] { BRep_Builder().NaturalRestriction(TopoDS_Face(), true); });
    const std::string second = exa_failure_of([] {});
    const bool good = first.find("broke down on it") != first.npos && second.find("damaged") == second.npos &&
                      second.find("by itself") != second.npos;
    return good ? OtherResult::GOOD : OtherResult::BAD;
  });
  EXPECT_TRUE(bad.empty());
}

TEST(Brep, MeshingStopsWhenItIsNotWantedAnyMore) {
  struct Progress : annProgress {
    explicit Progress(int times) : most(times) {}
    void done(double share) override { last = std::max(last.load(), share); }
    bool cancelled() const override { return ++asked > most; }
    int most;
    mutable std::atomic<int> asked{0};
    std::atomic<double> last{0};
  };
  const exaShape torus(BRepPrimAPI_MakeTorus(5, 1).Shape());
  apStatus stopped, status;
  Progress patient(1'000'000'000), impatient(20);
  EXPECT_TRUE(torus.facets({1e-2, 0}, status, &patient));
  EXPECT_TRUE(status.ok());
  EXPECT_GT(patient.last, 0);
  EXPECT_FALSE(torus.facets({1e-3, 0}, stopped, &impatient));
  EXPECT_FALSE(stopped.ok());
  EXPECT_LT(impatient.asked, patient.asked / 4);
}

TEST(Brep, TolerancesBelowTheLeastGiveTheLeast) {
  const exaShape cylinder(BRepPrimAPI_MakeCylinder(5, 1).Shape());
  const annTolerance least = cylinder.least_tolerance();
  apStatus status;
  const auto closest = cylinder.facets(least, status, nullptr);
  ASSERT_TRUE(closest);
  EXPECT_EQ(cylinder.facets({least.chord / 1e6, least.angle / 1e6}, status, nullptr), closest);
}
