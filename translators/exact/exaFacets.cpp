#include "exaFacets.h"

#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_Copy.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Geom_BSplineCurve.hxx>
#include <Geom_Curve.hxx>
#include <IMeshTools_Parameters.hxx>
#include <Message_ProgressIndicator.hxx>
#include <Poly_Triangulation.hxx>
#include <Standard_Failure.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

#include "annWelder.h"
#include "exaFacetNormals.h"
#include "exaFence.h"

namespace {

// From this number of faces on, one shape is meshed with several threads. Smaller shapes are meshed in parallel with
// each other.
constexpr std::size_t faces_for_threads = 64;

// Forwards the kernel's progress and cancels its work.
class Indicator : public Message_ProgressIndicator {
 public:
  explicit Indicator(annProgress* progress) : progress_(progress) {}

 protected:
  Standard_Boolean UserBreak() override { return progress_ && progress_->cancelled(); }
  void Show(const Message_ProgressScope&, const Standard_Boolean) override {
    if (!progress_) return;
    const exaAloud aloud;
    progress_->done(GetPosition());
  }

 private:
  annProgress* progress_;
};

class FacetMaker {
 public:
  explicit FacetMaker(annMesh& mesh)
      : mesh_(mesh), welder_(mesh.vertices->points), normal_welder_(mesh.vertices->normal_pool) {}

  // Adds the triangles of a face. False when it has none.
  bool add(const TopoDS_Face& face) {
    TopLoc_Location location;
    const Handle(Poly_Triangulation)& triangulation = BRep_Tool::Triangulation(face, location);
    if (triangulation.IsNull() || triangulation->NbTriangles() == 0) return false;
    number_nodes(*triangulation, location);
    const exaFacetNormals normals(face, *triangulation, location.Transformation());
    number_normals(normals);
    const bool turned = face.Orientation() == TopAbs_REVERSED;
    for (int i = 1; i <= triangulation->NbTriangles(); ++i) {
      int a = 0, b = 0, c = 0;
      triangulation->Triangle(i).Get(a, b, c);
      if (turned) std::swap(b, c);
      const std::uint32_t corners[] = {number(a), number(b), number(c)};
      // At the poles of a surface several nodes are the same point.
      if (corners[0] == corners[1] || corners[1] == corners[2] || corners[2] == corners[0]) continue;
      mesh_.corners.insert(mesh_.corners.end(), std::begin(corners), std::end(corners));
      add_normals(normals, {a, b, c});
    }
    return true;
  }

 private:
  void number_nodes(const Poly_Triangulation& triangulation, const TopLoc_Location& location) {
    numbers_.clear();
    const bool placed = !location.IsIdentity();
    const gp_Trsf trsf = location.Transformation();
    for (int i = 1; i <= triangulation.NbNodes(); ++i) {
      gp_Pnt point = triangulation.Node(i);
      if (placed) point.Transform(trsf);
      const annVector corner{point.X(), point.Y(), point.Z()};
      if (!std::isfinite(corner.x) || !std::isfinite(corner.y) || !std::isfinite(corner.z)) {
        throw Standard_Failure("a point of a facet is not a finite number");
      }
      numbers_.push_back(welder_.number_of(corner));
    }
  }

  void number_normals(const exaFacetNormals& normals) {
    flat_normal_ = normals.flat() ? normal_welder_.number_of(*normals.flat()) : annMesh::no_normal;
    normal_numbers_.clear();
    for (annVector normal : normals.of_nodes()) normal_numbers_.push_back(number_of_normal(normal));
  }

  std::uint32_t number_of_normal(annVector normal) {
    return normal == annVector{} ? annMesh::no_normal : normal_welder_.number_of(normal);
  }

  // Adds the normals of the facet that was added last.
  void add_normals(const exaFacetNormals& normals, std::array<int, 3> nodes) {
    if (normal_numbers_.empty()) {
      mesh_.corner_normals.insert(mesh_.corner_normals.end(), 3, flat_normal_);
      return;
    }
    const std::uint32_t* const corners = &mesh_.corners[mesh_.corners.size() - 3];
    const auto& points = mesh_.vertices->points;
    const annVector facing =
        ann_cross(points[corners[1]] - points[corners[0]], points[corners[2]] - points[corners[0]]);
    for (int i = 0; i < 3; ++i, std::rotate(nodes.begin(), nodes.begin() + 1, nodes.end())) {
      std::uint32_t number = normal_numbers_[static_cast<std::size_t>(nodes[0] - 1)];
      if (number == annMesh::no_normal) number = number_of_normal(normals.limit(nodes));
      // An inward normal would show as a dark spot.
      const bool inward = number != annMesh::no_normal && ann_dot(mesh_.vertices->normal_pool[number], facing) < 0;
      mesh_.corner_normals.push_back(inward ? annMesh::no_normal : number);
    }
  }

  std::uint32_t number(int node) const { return numbers_[static_cast<std::size_t>(node - 1)]; }

  annMesh& mesh_;
  annWelder welder_;
  std::vector<std::uint32_t> numbers_;  // vertex indices of the face's nodes
  annWelder normal_welder_;
  std::uint32_t flat_normal_ = annMesh::no_normal;
  std::vector<std::uint32_t> normal_numbers_;  // normal indices of the face's nodes; empty for a flat face
};

// Beyond this distance, doubles cannot represent the kernel's smallest distance.
constexpr double farthest = 1e12;

bool is_within_reach(const gp_Pnt& point) {
  return std::abs(point.X()) < farthest && std::abs(point.Y()) < farthest && std::abs(point.Z()) < farthest;
}

// Sampling an edge that leaves the valid range or runs around its curve many times would take endless points.
bool has_an_end(const TopoDS_Edge& edge) {
  constexpr double most_turns = 2;
  double first = 0, last = 0;
  const Handle(Geom_Curve) curve = BRep_Tool::Curve(edge, first, last);
  if (curve.IsNull()) return true;
  if (!std::isfinite(last - first)) return false;
  if (curve->IsPeriodic() && last - first > most_turns * curve->Period()) return false;
  if (const auto spline = Handle(Geom_BSplineCurve)::DownCast(curve)) {
    for (const gp_Pnt& pole : spline->Poles()) {
      if (!is_within_reach(pole)) return false;
    }
  }
  return is_within_reach(curve->Value(first)) && is_within_reach(curve->Value(last));
}

bool is_within_reach(const TopoDS_Face& face) {
  Bnd_Box box;
  BRepBndLib::Add(face, box, false);
  if (box.IsVoid()) return true;
  if (box.IsOpen()) return false;
  double ends[6] = {};
  box.Get(ends[0], ends[1], ends[2], ends[3], ends[4], ends[5]);
  return std::all_of(std::begin(ends), std::end(ends), [](double end) { return std::abs(end) < farthest; });
}

}  // namespace

bool exa_has_surface(const TopoDS_Face& face) {
  TopLoc_Location location;
  return !BRep_Tool::Surface(face, location).IsNull();
}

bool exa_can_be_meshed(const TopoDS_Face& face) {
  if (!exa_has_surface(face)) return false;
  for (TopExp_Explorer edge(face, TopAbs_EDGE); edge.More(); edge.Next()) {
    if (!has_an_end(TopoDS::Edge(edge.Current()))) return false;
  }
  return is_within_reach(face);
}

std::shared_ptr<const annMesh> exa_facets(const TopoDS_Shape& shape, const exaFaceColours& colours,
                                          const annTolerance& tolerance, std::size_t& missing, annProgress* progress) {
  const TopoDS_Shape copy = BRepBuilderAPI_Copy(shape, false, false).Shape();
  std::vector<TopoDS_Face> faces;
  TopoDS_Compound sound;
  BRep_Builder builder;
  builder.MakeCompound(sound);
  TopExp_Explorer original(shape, TopAbs_FACE);
  for (TopExp_Explorer explorer(copy, TopAbs_FACE); explorer.More(); explorer.Next(), original.Next()) {
    const TopoDS_Face face = TopoDS::Face(explorer.Current());
    // The copy has no facets, so a face without a surface is taken from the original.
    faces.push_back(exa_has_surface(face) ? face : TopoDS::Face(original.Current()));
    if (exa_can_be_meshed(face)) builder.Add(sound, face);
  }

  IMeshTools_Parameters parameters;
  parameters.Deflection = tolerance.chord;
  parameters.Angle = tolerance.angle;
  parameters.InParallel = faces.size() >= faces_for_threads;
  const Handle(Indicator) indicator = new Indicator(progress);
  BRepMesh_IncrementalMesh(sound, parameters, indicator->Start());
  auto cancelled = [&] { return progress && progress->cancelled(); };

  auto mesh = std::make_shared<annMesh>();
  for (const annColour& colour : colours.colours) mesh->materials.push_back({{}, colour});
  FacetMaker maker(*mesh);
  missing = 0;
  for (std::size_t face = 0; face < faces.size() && !cancelled(); ++face) {
    if (!maker.add(faces[face])) ++missing;
    if (!colours.empty()) mesh->face_materials.resize(mesh->corners.size() / 3, colours.of_face[face]);
  }
  // All faces consist of facets without normals.
  if (mesh->vertices->normal_pool.empty()) mesh->corner_normals.clear();
  return cancelled() ? nullptr : mesh;
}
