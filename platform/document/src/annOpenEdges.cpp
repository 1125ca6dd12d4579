#include "annOpenEdges.h"

#include <algorithm>

#include "annWelder.h"

namespace {

// Calls `use(from, to)` for each edge of each face.
template <typename NumberOf, typename Use>
void for_each_edge(const annMesh& mesh, NumberOf number_of, Use use) {
  for (std::size_t i = 0; i < mesh.face_count(); ++i) {
    const auto face = mesh.face(i);
    std::uint32_t from = number_of(face.back());
    for (std::uint32_t corner : face) {
      const std::uint32_t to = number_of(corner);
      if (from != to) use(from, to);
      from = to;
    }
  }
}

// An edge, stored in the list of the smaller of its two vertex indices.
struct Edge {
  std::uint32_t larger;
  std::int32_t direction;  // 1 from the smaller to the larger, else -1
};

std::size_t open_in(Edge* first, Edge* last) {
  std::sort(first, last, [](const Edge& a, const Edge& b) { return a.larger < b.larger; });
  std::size_t open = 0;
  while (first != last) {
    std::int64_t balance = 0;
    for (const std::uint32_t larger = first->larger; first != last && first->larger == larger; ++first) {
      balance += first->direction;
    }
    open += static_cast<std::size_t>(balance < 0 ? -balance : balance);
  }
  return open;
}

// Counts open edges after mapping vertices by `number_of`, which returns numbers below `count`.
template <typename NumberOf>
std::size_t open_edges(const annMesh& mesh, std::size_t count, NumberOf number_of) {
  // The start of each vertex's list. One more entry than needed, so that the same array gives the ends.
  std::vector<std::size_t> starts(count + 2);
  for_each_edge(mesh, number_of, [&](std::uint32_t a, std::uint32_t b) { ++starts[std::min(a, b) + std::size_t{2}]; });
  for (std::size_t i = 2; i < starts.size(); ++i) starts[i] += starts[i - 1];
  std::vector<Edge> edges(starts.back());
  for_each_edge(mesh, number_of, [&](std::uint32_t a, std::uint32_t b) {
    edges[starts[std::min(a, b) + std::size_t{1}]++] = {std::max(a, b), a < b ? 1 : -1};
  });
  std::size_t open = 0;
  for (std::size_t i = 0; i < count; ++i) open += open_in(edges.data() + starts[i], edges.data() + starts[i + 1]);
  return open;
}

// The faces of a mesh over the vertices that they use. The list of vertices may be far longer: other meshes share it.
annMesh with_used_vertices(const annMesh& mesh) {
  std::vector<std::uint32_t> used = mesh.corners;
  std::sort(used.begin(), used.end());
  used.erase(std::unique(used.begin(), used.end()), used.end());
  annMesh small;
  for (const std::uint32_t vertex : used) small.vertices->points.push_back(mesh.vertices->points[vertex]);
  for (const std::uint32_t corner : mesh.corners) {
    const auto found = std::lower_bound(used.begin(), used.end(), corner);
    small.corners.push_back(static_cast<std::uint32_t>(found - used.begin()));
  }
  small.face_starts = mesh.face_starts;
  return small;
}

}  // namespace

std::size_t ann_open_edges(const annMesh& mesh) {
  if (mesh.vertices->points.size() > mesh.corners.size()) return ann_open_edges(with_used_vertices(mesh));
  const std::vector<annVector>& points = mesh.vertices->points;
  // Edges that match by index also match by position, so this is sufficient for most closed meshes.
  const std::size_t open = open_edges(mesh, points.size(), [](std::uint32_t vertex) { return vertex; });
  if (open == 0) return 0;
  std::vector<annVector> distinct;
  std::vector<std::uint32_t> numbers(points.size());
  annWelder(distinct, points.size()).numbers_of(points, numbers.data());
  if (distinct.size() == points.size()) return open;
  return open_edges(mesh, distinct.size(), [&](std::uint32_t vertex) { return numbers[vertex]; });
}
