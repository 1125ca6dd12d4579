#include "exaPlacement.h"

#include <BRepBuilderAPI_GTransform.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <array>
#include <cmath>
#include <gp_GTrsf.hxx>

namespace {

constexpr double even = 1e-9;  // relative; files give matrices with ten digits and more

// The factor of a transform that turns and scales evenly, negative when it mirrors as well; 0 for any other one.
double even_scale(const std::array<double, 12>& m) {
  const annVector x{m[0], m[4], m[8]}, y{m[1], m[5], m[9]}, z{m[2], m[6], m[10]};
  const double xx = ann_dot(x, x), yy = ann_dot(y, y), zz = ann_dot(z, z);
  const double off = std::abs(ann_dot(x, y)) + std::abs(ann_dot(y, z)) + std::abs(ann_dot(z, x));
  if (!(xx > 0) || std::abs(yy - xx) > even * xx || std::abs(zz - xx) > even * xx || off > even * xx) return 0;
  const double factor = std::sqrt((xx + yy + zz) / 3);
  return ann_dot(ann_cross(x, y), z) > 0 ? factor : -factor;
}

}  // namespace

annTransform exa_transform(const gp_Trsf& trsf) {
  annTransform result;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 4; ++column) {
      result.m[static_cast<std::size_t>(4 * row + column)] = trsf.Value(row + 1, column + 1);
    }
  }
  return result;
}

gp_Trsf exa_trsf(const annTransform& transform) {
  const auto& m = transform.m;
  gp_Trsf result;
  if (transform.is_identity()) return result;
  if (m[0] == 1 && m[5] == 1 && m[10] == 1) {
    // A pure translation stays exact.
    result.SetTranslation(gp_Vec(m[3], m[7], m[11]));
    return result;
  }
  result.SetValues(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
  return result;
}

exaPlacementParts exa_parts(const annTransform& transform) {
  exaPlacementParts result{transform, {}};
  const double factor = even_scale(transform.m);
  if (std::abs(factor - 1) <= even) return result;
  annTransform& location = result.location;
  result.shape = factor == 0 ? transform : annTransform::scaling(factor);
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      double& number = location.m[4 * row + column];
      number = factor == 0 ? (row == column ? 1 : 0) : number / factor;
    }
    result.shape.m[4 * row + 3] = 0;
  }
  return result;
}

TopoDS_Shape exa_changed(const TopoDS_Shape& shape, const annTransform& transform) {
  if (transform.is_identity()) return shape;
  const auto& m = transform.m;
  if (even_scale(m) != 0) {
    gp_Trsf trsf;
    trsf.SetValues(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
    return BRepBuilderAPI_Transform(shape, trsf, true).Shape();
  }
  const gp_GTrsf general(gp_Mat(m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10]), gp_XYZ(m[3], m[7], m[11]));
  return BRepBuilderAPI_GTransform(shape, general, true).Shape();
}
