#include "exaPlanarShape.h"

#include <BRep_Builder.hxx>
#include <Geom_Line.hxx>
#include <Geom_Plane.hxx>
#include <Precision.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <algorithm>
#include <cmath>
#include <gp_Pln.hxx>
#include <unordered_map>

#include "exaPlanarBoundaries.h"
#include "exaPlanarFaces.h"

namespace {

// Making this many faces takes a few milliseconds.
constexpr std::size_t faces_between_signs = 512;

double length(annVector v) {
  return std::sqrt(ann_dot(v, v));
}

class PlanarShapeMaker {
 public:
  PlanarShapeMaker(const annMesh& mesh, annProgress& progress)
      : mesh_(mesh), progress_(progress), boundaries_(mesh), points_(boundaries_.points()), vertices_(points_.size()) {}

  exaPlanarShape make() {
    exa_for_each_planar_face(mesh_, [&](std::size_t face, exaCorners corners) {
      add_face(face, corners);
      return is_wanted(face);
    });
    if (progress_.cancelled()) return {};
    if (!faces_.empty()) gather();
    return std::move(result_);
  }

 private:
  struct Edge {
    TopoDS_Edge edge;
    std::size_t face;  // the first face at the edge
    int forward = 0;
    int backward = 0;
  };
  struct Face {
    TopoDS_Face face;
    std::uint32_t material;
    std::size_t group;  // another connected face, or itself
    double volume;      // six times the volume of the cone from the origin
    bool closed = true;
  };

  bool is_wanted(std::size_t face) {
    if (face < next_sign_) return true;
    next_sign_ = face + faces_between_signs;
    progress_.done(static_cast<double>(face) / static_cast<double>(mesh_.face_count()));
    return !progress_.cancelled();
  }

  const TopoDS_Vertex& vertex(std::uint32_t number) {
    TopoDS_Vertex& vertex = vertices_[number];
    const annVector p = points_[number];
    if (vertex.IsNull()) builder_.MakeVertex(vertex, gp_Pnt(p.x, p.y, p.z), Precision::Confusion());
    return vertex;
  }

  Edge& edge(std::uint32_t from, std::uint32_t to, std::size_t face) {
    const std::uint32_t low = std::min(from, to), high = std::max(from, to);
    const auto [known, is_new] = edges_.try_emplace(std::uint64_t{low} << 32 | high);
    Edge& edge = known->second;
    if (!is_new) return edge;
    const annVector start = points_[low], along = points_[high] - start;
    const gp_Dir direction(along.x, along.y, along.z);
    builder_.MakeEdge(edge.edge, new Geom_Line(gp_Pnt(start.x, start.y, start.z), direction), Precision::Confusion());
    builder_.Add(edge.edge, vertex(low).Oriented(TopAbs_FORWARD));
    builder_.Add(edge.edge, vertex(high).Oriented(TopAbs_REVERSED));
    builder_.Range(edge.edge, 0, length(along));
    edge.face = face;
    return edge;
  }

  void add_face(std::size_t face, exaCorners corners) {
    const exaCorners around = boundaries_.around(corners);
    const annVector area = around.empty() ? annVector{} : exa_area_vector(points_, around);
    const double size = length(area);
    if (!(size > Precision::SquareConfusion()) || !std::isfinite(size)) {
      ++result_.left_out;
      return;
    }
    const annVector origin = points_[around[0]];
    const gp_Pln plane(gp_Pnt(origin.x, origin.y, origin.z), gp_Dir(area.x, area.y, area.z));
    TopoDS_Face made;
    builder_.MakeFace(made, new Geom_Plane(plane), Precision::Confusion());
    TopoDS_Wire wire;
    builder_.MakeWire(wire);
    const std::size_t number = faces_.size();
    std::size_t group = number;
    for (std::size_t i = 0; i < around.size(); ++i) {
      const std::uint32_t from = around[i], to = around[(i + 1) % around.size()];
      Edge& here = edge(from, to, number);
      const bool forward = from < to;
      ++(forward ? here.forward : here.backward);
      builder_.Add(wire, here.edge.Oriented(forward ? TopAbs_FORWARD : TopAbs_REVERSED));
      if (here.face != number) group = join(group, here.face, number);
    }
    wire.Closed(true);
    builder_.Add(made, wire);
    faces_.push_back({made, mesh_.face_material(face), group, ann_dot(origin, area)});
  }

  std::size_t root(std::size_t face) {
    while (faces_[face].group != face) face = faces_[face].group = faces_[faces_[face].group].group;
    return face;
  }

  // `own` is the face being made, which is not yet in the list.
  std::size_t join(std::size_t group, std::size_t other, std::size_t own) {
    other = root(other);
    if (group == own || group == other) return other;
    const std::size_t low = std::min(group, other);
    faces_[std::max(group, other)].group = low;
    return low;
  }

  // Connected faces become a shell. Shells are ordered by their first face.
  void gather() {
    for (const auto& [key, edge] : edges_) {
      if (edge.forward != 1 || edge.backward != 1) faces_[root(edge.face)].closed = false;
    }
    std::vector<std::vector<std::size_t>> groups;
    std::unordered_map<std::size_t, std::size_t> number_of_root;
    for (std::size_t face = 0; face < faces_.size(); ++face) {
      const auto [known, is_new] = number_of_root.try_emplace(root(face), groups.size());
      if (is_new) groups.emplace_back();
      groups[known->second].push_back(face);
    }
    TopoDS_Compound compound;
    builder_.MakeCompound(compound);
    for (const std::vector<std::size_t>& group : groups) {
      result_.shape = make_group(group);
      if (groups.size() > 1) builder_.Add(compound, result_.shape);
    }
    if (groups.size() > 1) result_.shape = compound;
    result_.colours.settle();
  }

  TopoDS_Shape make_group(const std::vector<std::size_t>& group) {
    TopoDS_Shell shell;
    builder_.MakeShell(shell);
    double volume = 0;
    for (std::size_t number : group) {
      const Face& face = faces_[number];
      volume += face.volume;
      builder_.Add(shell, face.face);
      const bool coloured = face.material != annMesh::no_material;
      result_.colours.add(coloured ? &mesh_.materials[face.material].colour : nullptr);
    }
    const bool closed = faces_[root(group[0])].closed;
    shell.Closed(closed);
    if (!closed || volume == 0) return shell;
    // A shell with inward normals would enclose all space outside it.
    TopoDS_Solid solid;
    builder_.MakeSolid(solid);
    builder_.Add(solid, volume > 0 ? shell : shell.Reversed());
    return solid;
  }

  const annMesh& mesh_;
  annProgress& progress_;
  std::size_t next_sign_ = 0;
  BRep_Builder builder_;
  exaPlanarBoundaries boundaries_;
  const std::vector<annVector>& points_;
  std::vector<TopoDS_Vertex> vertices_;
  std::unordered_map<std::uint64_t, Edge> edges_;
  std::vector<Face> faces_;
  exaPlanarShape result_;
};

}  // namespace

exaPlanarShape exa_planar_shape(const annMesh& mesh, annProgress& progress) {
  return PlanarShapeMaker(mesh, progress).make();
}
