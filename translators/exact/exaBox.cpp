#include "exaBox.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Poly_Triangulation.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "exaFacets.h"

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// The kernel uses a box of about 1e100 for infinite shapes.
constexpr double farthest = 1e90;

// The margin that the kernel adds to an extent found by iteration.
const double margin = Precision::Confusion();

// The extent in each direction: the negated minimum coordinates, then the maximum coordinates.
struct Reach {
  std::array<double, 6> to{-infinity, -infinity, -infinity, -infinity, -infinity, -infinity};

  void include(const Reach& other) {
    for (std::size_t i = 0; i < to.size(); ++i) to[i] = std::max(to[i], other.to[i]);
  }
  void shrink() {
    for (double& number : to) number -= margin;
  }
};

class Measuring {
 public:
  explicit Measuring(const TopoDS_Shape& shape) : shape_(shape) {}

  std::optional<annBox> box() {
    TopExp::MapShapes(shape_, TopAbs_EDGE, edges_);
    for (int i = 1; i <= edges_.Extent(); ++i) add_edge(TopoDS::Edge(edges_(i)));
    TopTools_IndexedMapOfShape faces, vertices;
    TopExp::MapShapes(shape_, TopAbs_FACE, faces);
    for (int i = 1; i <= faces.Extent(); ++i) add_face(TopoDS::Face(faces(i)));
    TopExp::MapShapes(shape_, TopAbs_VERTEX, vertices);
    for (int i = 1; i <= vertices.Extent(); ++i) all_.include(measured(vertices(i)));
    if (is_open_ || all_.to[0] == -infinity) return std::nullopt;
    const auto& to = all_.to;
    return annBox{{-to[0], -to[1], -to[2]}, {to[3], to[4], to[5]}};
  }

 private:
  Reach measured(const TopoDS_Shape& part) {
    Bnd_Box box;
    box.SetGap(0);
    BRepBndLib::AddOptimal(part, box, false, false);
    return reach_of(box);
  }

  Reach facets_of(const TopoDS_Face& face) {
    Bnd_Box box;
    box.SetGap(0);
    TopLoc_Location location;
    const Handle(Poly_Triangulation)& facets = BRep_Tool::Triangulation(face, location);
    if (!facets.IsNull()) facets->MinMax(box, location.Transformation(), true);
    return reach_of(box);
  }

  Reach reach_of(const Bnd_Box& box) {
    Reach reach;
    if (box.IsVoid()) return reach;
    auto& to = reach.to;
    box.Get(to[0], to[1], to[2], to[3], to[4], to[5]);
    // The kernel does not report an open box after merging it with others, so check the size too.
    const bool endless = std::any_of(to.begin(), to.end(), [](double end) { return !(std::abs(end) < farthest); });
    is_open_ = is_open_ || box.IsOpen() || endless;
    for (std::size_t i = 0; i < 3; ++i) to[i] = -to[i];
    return reach;
  }

  void add_edge(const TopoDS_Edge& edge) {
    Reach reach;
    if (!BRep_Tool::Degenerated(edge) && BRep_Tool::IsGeometric(edge)) {
      reach = measured(edge);
      if (BRepAdaptor_Curve(edge).GetType() > GeomAbs_Parabola) reach.shrink();
      all_.include(reach);
    }
    of_edges_.push_back(reach);
  }

  void add_face(const TopoDS_Face& face) {
    Reach edges;
    for (TopExp_Explorer it(face, TopAbs_EDGE); it.More(); it.Next()) {
      edges.include(of_edges_[static_cast<std::size_t>(edges_.FindIndex(it.Current())) - 1]);
    }
    if (!exa_has_surface(face)) {
      all_.include(facets_of(face));
      return;
    }
    const GeomAbs_SurfaceType type = BRepAdaptor_Surface(face, false).GetType();
    if (type == GeomAbs_Plane && edges.to[0] > -infinity) return;
    Reach reach = measured(face);
    // Where the face exceeds its edges only by the margin, use the extent of the edges, which is more precise.
    const Reach with_margin = reach;
    if (type > GeomAbs_Sphere) reach.shrink();
    for (std::size_t i = 0; i < reach.to.size(); ++i) {
      if (with_margin.to[i] <= edges.to[i] + 1.001 * margin) reach.to[i] = -infinity;
    }
    all_.include(reach);
  }

  const TopoDS_Shape& shape_;
  TopTools_IndexedMapOfShape edges_;
  std::vector<Reach> of_edges_;
  Reach all_;
  bool is_open_ = false;
};

}  // namespace

std::optional<annBox> exa_box(const TopoDS_Shape& shape) {
  return Measuring(shape).box();
}
