#include "annTransform.h"

#include <algorithm>
#include <cmath>

namespace {

// The rows of the matrix that maps normals, apart from sign and length: the cofactors of the linear part.
struct Cofactors {
  annVector x, y, z;
};

Cofactors cofactors(const std::array<double, 12>& m) {
  const annVector row_x{m[0], m[1], m[2]}, row_y{m[4], m[5], m[6]}, row_z{m[8], m[9], m[10]};
  return {ann_cross(row_y, row_z), ann_cross(row_z, row_x), ann_cross(row_x, row_y)};
}

double determinant(const std::array<double, 12>& m) {
  return ann_dot({m[0], m[1], m[2]}, cofactors(m).x);
}

}  // namespace

annTransform annTransform::scaling(double factor) {
  annTransform result;
  result.m[0] = result.m[5] = result.m[10] = factor;
  return result;
}

bool annTransform::mirrors() const {
  return determinant(m) < 0;
}

double annTransform::largest_scale() const {
  double largest = 0;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    largest = std::max(largest, std::hypot(m[axis], m[4 + axis], m[8 + axis]));
  }
  return std::isfinite(largest) ? largest : 0;
}

annVector annTransform::normal(annVector n) const {
  const Cofactors rows = cofactors(m);
  annVector result{ann_dot(rows.x, n), ann_dot(rows.y, n), ann_dot(rows.z, n)};
  const double length = std::hypot(result.x, result.y, result.z);
  if (!(length > 0) || !std::isfinite(length)) return {};
  return result * ((mirrors() ? -1 : 1) / length) + annVector{};  // the sum changes -0 to 0
}

annTransform operator*(const annTransform& outer, const annTransform& inner) {
  annTransform result;
  for (int row = 0; row < 12; row += 4) {
    for (int column = 0; column < 4; ++column) {
      double sum = column == 3 ? outer.m[row + 3] : 0;
      for (int k = 0; k < 3; ++k) sum += outer.m[row + k] * inner.m[4 * k + column];
      result.m[row + column] = sum;
    }
  }
  return result;
}
