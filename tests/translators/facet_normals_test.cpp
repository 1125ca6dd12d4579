#include <gtest/gtest.h>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRep_Builder.hxx>
#include <Poly_Triangulation.hxx>
#include <TopoDS_Face.hxx>
#include <cmath>
#include <functional>

#include "Solids.h"
#include "exaPlacement.h"
#include "exaShape.h"

// Facets of exact shapes have the normals of the surfaces that they follow.

namespace {

double length(annVector v) {
  return std::sqrt(ann_dot(v, v));
}

annVector unit(annVector v) {
  return v * (1 / length(v));
}

// Seen from the z axis.
annVector radial(annVector p) {
  return unit({p.x, p.y, 0});
}

// The surface's normal at a point that a facet with this normal meets.
using Expected = std::function<annVector(annVector point, annVector facet)>;

struct Shape {
  const char* name;
  TopoDS_Shape shape;
  Expected normal;
  std::size_t most_in_pool;
};

// What every corner of the facets must have; how far the worst one is from it.
double worst_normal(const annMesh& mesh, const Expected& expected) {
  double worst = 0;
  const auto& points = mesh.vertices->points;
  for (std::size_t corner = 0; corner < mesh.corners.size(); ++corner) {
    const std::span<const std::uint32_t> face = mesh.face(corner / 3);
    const annVector facet = unit(ann_cross(points[face[1]] - points[face[0]], points[face[2]] - points[face[0]]));
    const annVector* const normal = mesh.normal(corner);
    if (!normal) return 2;
    worst = std::max(worst, length(*normal - expected(points[mesh.corners[corner]], facet)));
  }
  return worst;
}

TopoDS_Shape stored_facets(bool with_normals) {
  const Handle(Poly_Triangulation) facets = new Poly_Triangulation(3, 1, false, with_normals);
  const gp_Pnt points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
  for (int i = 1; i <= 3; ++i) {
    facets->SetNode(i, points[i - 1]);
    if (with_normals) facets->SetNormal(i, gp_Dir(0, 3, 4));
  }
  facets->SetTriangle(1, {1, 2, 3});
  TopoDS_Face face;
  BRep_Builder().MakeFace(face, facets);
  return face.Reversed();
}

std::shared_ptr<const annMesh> facets_of_shape(const TopoDS_Shape& shape) {
  return facets_of({nullptr, std::make_shared<exaShape>(shape)});
}

}  // namespace

TEST(FacetNormals, EachCornerHasThatOfItsSurface) {
  const auto flat_or = [](double end, const Expected& side) -> Expected {
    return [=](annVector p, annVector facet) {
      const bool cap = std::abs(p.z) < 1e-9 || std::abs(p.z - end) < 1e-9;
      return cap && std::abs(facet.z) > 1 - 1e-9 ? facet : side(p, facet);
    };
  };
  const Expected sphere = [](annVector p, annVector) { return unit(p); };
  const Expected inside_out = [](annVector p, annVector) { return unit(p) * -1; };
  const Expected cone = [](annVector p, annVector facet) {
    // All directions meet in the apex: that of the facet is right there.
    const annVector out = p.z > 4 - 1e-9 ? radial(facet) : radial(p);
    return unit({out.x, out.y, 1});
  };
  const Expected torus = [](annVector p, annVector) { return unit(p - radial(p) * 8); };

  gp_Trsf placed;
  placed.SetRotation({{1, 2, 3}, {0, 1, 1}}, 0.7);
  const gp_XYZ centre = placed.TranslationPart();
  const Expected around_centre = [&](annVector p, annVector) {
    return unit(p - annVector{centre.X(), centre.Y(), centre.Z()});
  };
  const TopoDS_Shape ball = BRepPrimAPI_MakeSphere(5).Shape();
  annTransform mirror;
  mirror.m[0] = -1;

  const std::size_t any = 100'000;
  const Shape shapes[] = {
      {"box", BRepPrimAPI_MakeBox(1, 2, 3).Shape(), [](annVector, annVector facet) { return facet; }, 6},
      {"cylinder", BRepPrimAPI_MakeCylinder(3, 7).Shape(), flat_or(7, [](annVector p, annVector) { return radial(p); }),
       76},
      {"cone", BRepPrimAPI_MakeCone(4, 0, 4).Shape(), flat_or(0, cone), any},
      {"sphere", ball, sphere, any},
      {"sphere as a spline", BRepBuilderAPI_NurbsConvert(ball, true).Shape(), sphere, any},
      {"sphere inside out", ball.Reversed(), inside_out, any},
      {"sphere in a mirror", exa_changed(ball, mirror), sphere, any},
      {"placed sphere", ball.Moved(placed), around_centre, any},
      {"torus", BRepPrimAPI_MakeTorus(8, 2).Shape(), torus, any},
  };
  for (const Shape& it : shapes) {
    const auto mesh = facets_of_shape(it.shape);
    EXPECT_LT(worst_normal(*mesh, it.normal), 0.01) << it.name;
    EXPECT_LE(mesh->vertices->normal_pool.size(), it.most_in_pool) << it.name;
    EXPECT_EQ(closedness_of(*mesh).open_edges, 0U) << it.name;
  }
}

TEST(FacetNormals, FacetsWithoutASurfaceHaveThoseThatAreStored) {
  EXPECT_FALSE(facets_of_shape(stored_facets(false))->has_normals());
  const auto mesh = facets_of_shape(stored_facets(true));
  EXPECT_LT(worst_normal(*mesh, [](annVector, annVector) { return annVector{0, -0.6, -0.8}; }), 1e-6);
}
