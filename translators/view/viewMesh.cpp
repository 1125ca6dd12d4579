#include "viewMesh.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "annTriangleCorners.h"
#include "annWelder.h"
#include "viewCreases.h"

namespace {

constexpr std::uint32_t none = annMesh::no_material;

// The triangles of a mesh with three distinct points, sorted by material. The order within a material is kept.
class Triangles {
 public:
  explicit Triangles(const annMesh& mesh) : mesh_(mesh), number_of_(mesh.vertices->points.size(), none) {
    take();
    sort();
  }

  std::vector<std::uint32_t> sources;  // indices into the mesh's corners, three for each triangle
  std::vector<std::uint32_t> places;   // the same as indices of distinct points
  std::vector<annVector> points;       // the distinct points
  std::vector<viewMesh::Range> ranges;

 private:
  void take() {
    annWelder welder(points, std::min<std::size_t>(mesh_.vertices->points.size(), mesh_.corners.size()));
    auto place = [&](std::uint32_t corner) {
      const std::uint32_t vertex = mesh_.corners[corner];
      std::uint32_t& number = number_of_[vertex];
      if (number == none) number = welder.number_of(mesh_.vertices->points[vertex]);
      return number;
    };
    sources.reserve(3 * mesh_.triangle_count());
    ann_for_each_triangle_of_corners(mesh_, [&](std::size_t face, std::uint32_t a, std::uint32_t b, std::uint32_t c) {
      const std::uint32_t pa = place(a), pb = place(b), pc = place(c);
      if (pa == pb || pb == pc || pc == pa) return;
      sources.insert(sources.end(), {a, b, c});
      if (!mesh_.face_materials.empty()) materials_.push_back(mesh_.face_material(face));
    });
  }

  void sort() {
    const auto count = static_cast<std::uint32_t>(sources.size() / 3);
    if (materials_.empty()) {
      if (count > 0) ranges.push_back({none, 0, count});
    } else {
      sort_by_material(count);
    }
    places.resize(sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i) places[i] = number_of_[mesh_.corners[sources[i]]];
  }

  void sort_by_material(std::uint32_t count) {
    // Triangles without a material, whose index is the maximum, come first.
    const std::size_t looks = mesh_.materials.size() + 1;
    std::vector<std::uint32_t> next(looks + 1);
    auto slot = [](std::uint32_t material) { return static_cast<std::size_t>(material + 1U); };
    for (std::uint32_t material : materials_) ++next[slot(material) + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    for (std::size_t look = 0; look < looks; ++look) {
      if (next[look + 1] > next[look]) {
        ranges.push_back({static_cast<std::uint32_t>(look) - 1U, next[look], next[look + 1] - next[look]});
      }
    }
    std::vector<std::uint32_t> sorted(sources.size());
    for (std::uint32_t triangle = 0; triangle < count; ++triangle) {
      const std::size_t to = next[slot(materials_[triangle])]++;
      std::copy_n(sources.begin() + 3 * triangle, 3, sorted.begin() + static_cast<std::ptrdiff_t>(3 * to));
    }
    sources = std::move(sorted);
  }

  const annMesh& mesh_;
  std::vector<std::uint32_t> number_of_;  // index of the distinct point of each vertex
  std::vector<std::uint32_t> materials_;  // for each triangle; empty when no face has one
};

// Renumbers the vertices of `made` in the order in which the triangles use them.
void number_by_use(viewMesh& made) {
  std::vector<std::uint32_t> number(made.points.size(), none);
  std::vector<std::uint32_t> order;
  order.reserve(made.points.size());
  for (std::uint32_t& corner : made.corners) {
    if (number[corner] == none) {
      number[corner] = static_cast<std::uint32_t>(order.size());
      order.push_back(corner);
    }
    corner = number[corner];
  }
  for (std::uint32_t& end : made.edges) end = number[end];
  auto reorder = [&](auto& values) {
    if (values.empty()) return;
    auto sorted = values;
    for (std::size_t i = 0; i < order.size(); ++i) sorted[i] = values[order[i]];
    sorted.resize(order.size());
    values = std::move(sorted);
  };
  reorder(made.points);
  reorder(made.normals);
  reorder(made.colours);
}

double length(const annVector& v) {
  return std::hypot(v.x, v.y, v.z);
}

double line_spacing(const viewMesh& mesh) {
  double area = 0, lines = 0;
  const auto side = [&](std::uint32_t from, std::uint32_t to) { return mesh.points[to] - mesh.points[from]; };
  for (std::size_t i = 0; i < mesh.corners.size(); i += 3) {
    const std::uint32_t* const t = mesh.corners.data() + i;
    area += length(ann_cross(side(t[0], t[1]), side(t[0], t[2]))) / 2;
  }
  for (std::size_t i = 0; i < mesh.edges.size(); i += 2) lines += length(side(mesh.edges[i], mesh.edges[i + 1]));
  return lines > 0 ? area / lines : 0;
}

}  // namespace

viewMesh view_make_mesh(const annMesh& mesh) {
  Triangles triangles(mesh);
  viewMesh made;
  made.ranges = std::move(triangles.ranges);
  if (made.ranges.empty()) return made;
  view_split_at_creases(mesh, triangles.points, triangles.places, triangles.sources, made);
  number_by_use(made);
  made.line_spacing = line_spacing(made);
  made.box = {made.points.front(), made.points.front()};
  for (const annVector& point : made.points) made.box.include(point);
  return made;
}
