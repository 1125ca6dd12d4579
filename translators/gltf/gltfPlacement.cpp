#include "gltfPlacement.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double row_tolerance = 1e-6;

bool read_matrix(const gltfValue& node, annTransform& placement) {
  std::array<double, 16> columns{};
  if (!node.read("matrix", columns)) return false;
  for (std::size_t column = 0; column < 4; ++column) {
    if (std::fabs(columns[4 * column + 3] - (column == 3 ? 1 : 0)) > row_tolerance) {
      return node.fail("matrix", "its last row is not 0 0 0 1");
    }
    for (std::size_t row = 0; row < 3; ++row) placement.m[4 * row + column] = columns[4 * column + row];
  }
  return true;
}

bool read_parts(const gltfValue& node, annTransform& placement) {
  std::array<double, 3> translation{0, 0, 0}, scale{1, 1, 1};
  std::array<double, 4> rotation{0, 0, 0, 1};
  if (!node.read("translation", translation) || !node.read("rotation", rotation) || !node.read("scale", scale)) {
    return false;
  }
  auto [x, y, z, w] = rotation;
  const double length = std::hypot(std::hypot(x, y, z), w);
  if (!(length > 0)) return node.fail("rotation", "it is no rotation: its length is 0");
  x /= length, y /= length, z /= length, w /= length;
  const std::array<double, 9> turned{1 - 2 * (y * y + z * z), 2 * (x * y - z * w),     2 * (x * z + y * w),
                                     2 * (x * y + z * w),     1 - 2 * (x * x + z * z), 2 * (y * z - x * w),
                                     2 * (x * z - y * w),     2 * (y * z + x * w),     1 - 2 * (x * x + y * y)};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      placement.m[4 * row + column] = turned[3 * row + column] * scale[column];
    }
    placement.m[4 * row + 3] = translation[row];
  }
  return true;
}

}  // namespace

bool gltf_read_placement(const gltfValue& node, double factor, annTransform& placement) {
  const bool has_parts = node.has("translation") || node.has("rotation") || node.has("scale");
  if (node.has("matrix")) {
    if (has_parts) return node.fail("matrix", "it stands beside translation, rotation or scale; one of both is meant");
    if (!read_matrix(node, placement)) return false;
  } else if (has_parts && !read_parts(node, placement)) {
    return false;
  }
  for (std::size_t row = 0; row < 3; ++row) placement.m[4 * row + 3] *= factor;
  for (double& number : placement.m) {
    if (!std::isfinite(number)) return node.fail("its placement is not of finite numbers");
    number += 0.0;  // turns -0 into 0
  }
  return true;
}
