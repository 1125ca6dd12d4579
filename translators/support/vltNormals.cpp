#include "vltNormals.h"

#include <cmath>

bool vlt_normalise(std::vector<annVector>& normals) {
  constexpr double close = 1e-5;  // rounding error of a length in floats
  for (annVector& n : normals) {
    const double square = ann_dot(n, n);
    if (std::fabs(square - 1) <= close || n == annVector{}) continue;
    if (!std::isfinite(n.x) || !std::isfinite(n.y) || !std::isfinite(n.z)) return false;
    const double length = std::hypot(n.x, n.y, n.z);
    n = std::isfinite(length) ? annVector{n.x / length, n.y / length, n.z / length} : annVector{};
  }
  return true;
}

void vlt_settle_normals(std::vector<annVector>& normals, vltOnce& findings) {
  if (vlt_normalise(normals)) return;
  findings.count(velabsWARNING, "a normal is not of finite numbers, so normals are left out");
  normals = {};
}
