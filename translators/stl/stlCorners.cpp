#include "stlCorners.h"

#include <numeric>

#include "apLargePages.h"

stlCorners::stlCorners(annMesh& mesh, bool weld, std::size_t expected_triangles)
    : mesh_(mesh),
      weld_(weld),
      expected_corners_(3 * expected_triangles),
      welder_(mesh.vertices->points, weld && expected_triangles > 0 ? expected_triangles / 2 + 2 : 0) {
  // A closed surface has half as many points as triangles.
  const std::size_t closed = expected_triangles > 0 ? expected_triangles / 2 + expected_triangles / 16 + 16 : 0;
  ap_reserve_large(mesh.vertices->points, weld ? closed : expected_corners_);
  ap_reserve_large(mesh.corners, expected_corners_);
}

bool stlCorners::flush() {
  std::vector<annVector>& points = mesh_.vertices->points;
  if (points.size() + count_ >= annMesh::no_material) return false;
  // Reserve everything for an open surface at once; growing in steps would need twice the memory.
  if (points.capacity() - points.size() < count_ && points.capacity() < expected_corners_) {
    ap_reserve_large(points, expected_corners_);
  }
  const std::size_t known = mesh_.corners.size();
  mesh_.corners.resize(known + count_);
  if (weld_) {
    welder_.numbers_of({pending_.data(), count_}, mesh_.corners.data() + known);
  } else {
    std::iota(mesh_.corners.begin() + static_cast<std::ptrdiff_t>(known), mesh_.corners.end(), mesh_.vertices->count());
    points.insert(points.end(), pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(count_));
  }
  count_ = 0;
  return true;
}
