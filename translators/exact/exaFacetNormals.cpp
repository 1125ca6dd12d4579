#include "exaFacetNormals.h"

#include <Standard_Failure.hxx>
#include <algorithm>
#include <cmath>

#include "exaFacets.h"

namespace {

// A tangent this much shorter than the other one counts as zero. Two tangents at a smaller angle count as parallel.
constexpr double least_part = 1e-7;

// The distance from the node at which limits are measured, as a fraction of the facet.
constexpr double step_inside = 1e-5;

// Rounding step that makes normals equal which differ only by rounding errors.
constexpr double grain = 0x1p-30;

double length(annVector v) {
  return std::sqrt(ann_dot(v, v));
}

annVector vector_of(const gp_Vec& v) {
  return {v.X(), v.Y(), v.Z()};
}

annVector unit(annVector v) {
  const double size = length(v);
  if (!(size > 0) || !std::isfinite(size)) return {};
  // Adding 0 turns -0 into 0.
  auto rounded = [&](double part) { return std::round(part / size / grain) * grain + 0.0; };
  return {rounded(v.x), rounded(v.y), rounded(v.z)};
}

}  // namespace

exaFacetNormals::exaFacetNormals(const TopoDS_Face& face, const Poly_Triangulation& facets, const gp_Trsf& placement)
    : facets_(facets), reversed_(face.Orientation() == TopAbs_REVERSED) {
  if (exa_has_surface(face) && facets.HasUVNodes()) {
    surface_.Initialize(face, false);
    read_surface();
  } else if (facets.HasNormals()) {
    read_stored(placement);
  }
}

annVector exaFacetNormals::limit(const std::array<int, 3>& facet) const {
  if (!facets_.HasUVNodes()) return {};
  const Parameters node = parameters(facet[0]), b = parameters(facet[1]), c = parameters(facet[2]);
  const Parameters across{(b.u + c.u) / 2, (b.v + c.v) / 2};
  const Tangents there = tangents(node);
  // Where a parameter does not move the point, all its values are the same point; take that of the other nodes.
  auto inside = [](double from, double to, bool moves) { return moves ? from + step_inside * (to - from) : to; };
  const Tangents near = tangents(
      {inside(node.u, across.u, there.moves_in_u), inside(node.v, across.v, there.moves_in_v || !there.moves_in_u)});
  return outward(ann_cross(near.u, near.v));
}

void exaFacetNormals::read_surface() {
  if (surface_.GetType() == GeomAbs_Plane) {
    const Tangents anywhere = tangents({0, 0});
    flat_ = outward(ann_cross(anywhere.u, anywhere.v));
    return;
  }
  Parameters least = parameters(1), greatest = least;
  for (int node = 2; node <= facets_.NbNodes(); ++node) {
    const Parameters at = parameters(node);
    least = {std::min(least.u, at.u), std::min(least.v, at.v)};
    greatest = {std::max(greatest.u, at.u), std::max(greatest.v, at.v)};
  }
  range_ = {greatest.u - least.u, greatest.v - least.v};
  of_nodes_.reserve(static_cast<std::size_t>(facets_.NbNodes()));
  for (int node = 1; node <= facets_.NbNodes(); ++node) {
    const Tangents here = tangents(parameters(node));
    const annVector normal = ann_cross(here.u, here.v);
    const bool has_one =
        here.moves_in_u && here.moves_in_v && length(normal) > least_part * length(here.u) * length(here.v);
    of_nodes_.push_back(has_one ? outward(normal) : annVector{});
  }
}

void exaFacetNormals::read_stored(const gp_Trsf& placement) {
  of_nodes_.reserve(static_cast<std::size_t>(facets_.NbNodes()));
  for (int node = 1; node <= facets_.NbNodes(); ++node) {
    const gp_Vec normal = gp_Vec(facets_.Normal(node)).Transformed(placement);
    // A mirrored placement turns the facets inside out.
    of_nodes_.push_back(outward(vector_of(placement.IsNegative() ? normal.Reversed() : normal)));
  }
}

exaFacetNormals::Parameters exaFacetNormals::parameters(int node) const {
  const gp_Pnt2d at = facets_.UVNode(node);
  return {at.X(), at.Y()};
}

exaFacetNormals::Tangents exaFacetNormals::tangents(Parameters at) const {
  gp_Pnt point;
  gp_Vec u, v;
  try {
    surface_.D1(at.u, at.v, point, u, v);
  } catch (const Standard_Failure&) {
    return {{}, {}, false, false};
  }
  Tangents result{vector_of(u), vector_of(v), true, true};
  const double way_in_u = length(result.u) * range_.u, way_in_v = length(result.v) * range_.v;
  result.moves_in_u = way_in_u > least_part * way_in_v;
  result.moves_in_v = way_in_v > least_part * way_in_u;
  return result;
}

annVector exaFacetNormals::outward(annVector normal) const {
  return unit(reversed_ ? normal * -1 : normal);
}
