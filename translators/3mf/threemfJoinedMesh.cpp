#include "threemfJoinedMesh.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "annTriangulation.h"
#include "annWelder.h"
#include "threemfNearPoints.h"
#include "threemfText.h"

namespace {

constexpr double largest_tolerance = 1e300;  // twice that is still finite

// The number that a reader gets from the text of `value`.
double rounded(double value, int digits) {
  char text[threemf_number_room];
  const char* end = threemf_write_number(text, value, digits);
  std::from_chars(text, end, value);
  return value;
}

}  // namespace

threemfJoinedMesh::threemfJoinedMesh(const annMesh& source, const threemfNumberForm& form) {
  if (source.corners.empty()) return;
  std::vector<std::uint32_t> written;
  const std::vector<std::uint32_t> numbers = join_vertices(source, form, written);
  if (overflow) return;
  auto joined_of = [&](std::uint32_t vertex) {
    if (written.empty()) return numbers[vertex];
    return numbers[static_cast<std::size_t>(std::lower_bound(written.begin(), written.end(), vertex) -
                                            written.begin())];
  };
  const bool with_faces = !source.face_materials.empty(), with_vertices = !source.vertices->colours.empty();
  mesh.corners.reserve(3 * source.triangle_count());
  ann_for_each_triangle(source, [&](std::size_t face, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    const std::uint32_t joined[] = {joined_of(a), joined_of(b), joined_of(c)};
    if (joined[0] == joined[1] || joined[1] == joined[2] || joined[2] == joined[0]) {
      ++collapsed;
      return;
    }
    mesh.corners.insert(mesh.corners.end(), std::begin(joined), std::end(joined));
    if (with_faces) faces.push_back(static_cast<std::uint32_t>(face));
    if (with_vertices) source_vertices.insert(source_vertices.end(), {a, b, c});
  });
}

// A vertex list shared with other meshes is written with each mesh, so only vertices used by this mesh are kept, in
// time that does not depend on the others; an unshared list is kept completely.
std::vector<std::uint32_t> threemfJoinedMesh::join_vertices(const annMesh& source, const threemfNumberForm& form,
                                                            std::vector<std::uint32_t>& written) {
  const std::vector<annVector>& points = source.vertices->points;
  if (source.vertices.use_count() > 1) {
    written = source.corners;
    std::sort(written.begin(), written.end());
    written.erase(std::unique(written.begin(), written.end()), written.end());
  }

  std::vector<annVector> placed;
  const std::size_t count = written.empty() ? points.size() : written.size();
  placed.reserve(count);
  double largest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    annVector point = points[written.empty() ? i : written[i]];
    for (double* coordinate : {&point.x, &point.y, &point.z}) {
      *coordinate *= form.factor;
      overflow = overflow || !std::isfinite(*coordinate);
      largest = std::max(largest, std::fabs(*coordinate));
      if (form.digits > 0) *coordinate = rounded(*coordinate, form.digits);
    }
    placed.push_back(point);
  }
  if (overflow) return {};

  std::vector<annVector>& joined = mesh.vertices->points;
  std::vector<std::uint32_t> numbers(count);
  // A tolerance below the precision of the coordinates joins only equal ones.
  if (form.join_tolerance > largest * std::numeric_limits<double>::epsilon()) {
    threemfNearPoints near(joined, form.join_tolerance);
    for (std::size_t i = 0; i < count; ++i) numbers[i] = near.number_of(placed[i]);
  } else {
    annWelder(joined, count).numbers_of(placed, numbers.data());
  }
  return numbers;
}

threemfJoinedMeshes::threemfJoinedMeshes(const std::vector<vltPlacedMesh>& bodies, const threemfNumberForm& form) {
  // The tolerance is a distance between placed vertices, at the largest instance of a mesh.
  std::unordered_map<const annMesh*, double> scales;
  for (const vltPlacedMesh& body : bodies) {
    double& scale = scales[body.mesh.get()];
    scale = std::max(scale, body.placement.largest_scale());
  }
  for (const vltPlacedMesh& body : bodies) {
    threemfNumberForm own = form;
    if (const double scale = scales[body.mesh.get()]; scale > 0)
      own.join_tolerance = std::min(own.join_tolerance / scale, largest_tolerance);
    const auto [known, added] = meshes_.try_emplace(body.mesh.get(), *body.mesh, own);
    if (!added) continue;
    overflow_ = overflow_ || known->second.overflow;
    triangles_ += known->second.mesh.face_count();
    collapsed_ += known->second.collapsed;
  }
}
