#include "exaPlacement.h"

#include <BRepBuilderAPI_GTransform.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <algorithm>
#include <cmath>
#include <gp_GTrsf.hxx>

namespace {

// Tolerance for matrices with six digits: the error of lengths and right angles, relative to the lengths.
constexpr double even = 1e-6;

// In radians; smaller rotations are rounding errors of rotations that cancel out.
constexpr double least_turn = 1e-12;

// The linear part of a transform.
struct Columns {
  annVector x, y, z;
};

Columns columns_of(const annTransform& transform) {
  const auto& m = transform.m;
  return {{m[0], m[4], m[8]}, {m[1], m[5], m[9]}, {m[2], m[6], m[10]}};
}

void set_columns(annTransform& transform, const Columns& columns) {
  const auto& [x, y, z] = columns;
  transform = {{x.x, y.x, z.x, transform.m[3], x.y, y.y, z.y, transform.m[7], x.z, y.z, z.z, transform.m[11]}};
}

// The scale factor of columns that rotate and scale uniformly, negative when they also mirror; 0 for other columns.
double even_factor(const Columns& columns) {
  const auto& [x, y, z] = columns;
  const double xx = ann_dot(x, x), yy = ann_dot(y, y), zz = ann_dot(z, z);
  const double off = std::max({std::abs(yy - xx), std::abs(zz - xx), std::abs(ann_dot(x, y)), std::abs(ann_dot(y, z)),
                               std::abs(ann_dot(z, x))});
  if (!(xx > 0) || !(off <= 2 * even * xx)) return 0;
  const double factor = std::sqrt((xx + yy + zz) / 3);
  return ann_dot(ann_cross(x, y), z) > 0 ? factor : -factor;
}

// The rotation closest to columns that are one except for rounding. Each step takes the mean of the matrix and the
// inverse of its transpose, which doubles the number of correct digits.
Columns closest_turn(Columns columns) {
  constexpr int steps = 3;
  for (int i = 0; i < steps; ++i) {
    const auto [x, y, z] = columns;
    const annVector inverse_x = ann_cross(y, z);
    const double weight = 0.5 / ann_dot(x, inverse_x);
    columns = {x * 0.5 + inverse_x * weight, y * 0.5 + ann_cross(z, x) * weight, z * 0.5 + ann_cross(x, y) * weight};
  }
  const auto& [x, y, z] = columns;
  const double turned = std::max({std::abs(x.y - y.x), std::abs(y.z - z.y), std::abs(z.x - x.z)}) / 2;
  if (turned < least_turn && x.x > 0 && y.y > 0 && z.z > 0) return {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  return columns;
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
  annTransform turn = transform;
  turn.m[3] = turn.m[7] = turn.m[11] = 0;
  if (turn.is_identity()) {
    if (!transform.is_identity()) result.SetTranslation(gp_Vec(m[3], m[7], m[11]));
    return result;
  }
  result.SetValues(m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8], m[9], m[10], m[11]);
  // The kernel takes the factor from the determinant, which has rounding errors, and rejects locations with a factor
  // other than 1.
  result.SetScaleFactor(1);
  return result;
}

exaPlacementParts exa_parts(const annTransform& transform, double expected_factor) {
  exaPlacementParts result{transform, transform};
  result.shape.m[3] = result.shape.m[7] = result.shape.m[11] = 0;
  Columns columns = columns_of(transform);
  double factor = even_factor(columns);
  if (factor == 0) {
    set_columns(result.location, columns_of({}));
    return result;
  }
  if (std::abs(factor - expected_factor) <= even * std::abs(expected_factor)) factor = expected_factor;
  for (annVector* column : {&columns.x, &columns.y, &columns.z})
    *column = {column->x / factor, column->y / factor, column->z / factor};
  set_columns(result.location, closest_turn(columns));
  result.shape = annTransform::scaling(factor);
  return result;
}

TopoDS_Shape exa_changed(const TopoDS_Shape& shape, const annTransform& transform) {
  if (transform.is_identity()) return shape;
  const exaPlacementParts parts = exa_parts(transform);
  if (parts.is_even()) {
    gp_Trsf trsf = exa_trsf(parts.location);
    trsf.SetScaleFactor(parts.shape.m[0]);
    return BRepBuilderAPI_Transform(shape, trsf, true).Shape();
  }
  const auto& m = transform.m;
  const gp_GTrsf general(gp_Mat(m[0], m[1], m[2], m[4], m[5], m[6], m[8], m[9], m[10]), gp_XYZ(m[3], m[7], m[11]));
  return BRepBuilderAPI_GTransform(shape, general, true).Shape();
}
