#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "annMesh.h"
#include "exaPlanarFaces.h"

// The corners of a mesh's planar faces as the kernel can take them, so that what is closed stays so. Points of one edge
// that lie nearer to each other than its tolerance are one. A triangle that is narrower than that has no boundary: the
// neighbour at its long edge takes over the corner in between.
class exaPlanarBoundaries {
 public:
  explicit exaPlanarBoundaries(const annMesh& mesh);

  const std::vector<annVector>& points() const { return points_; }

  // The points around a face, from the corners that the mesh gives it; none when it has no width. They hold until the
  // next call.
  exaCorners around(exaCorners corners);

 private:
  using Edge = std::pair<std::uint32_t, std::uint32_t>;
  // The ends of the long edge of a narrow triangle, and the point between them.
  struct Narrow {
    std::uint32_t from, between, to;
  };

  std::uint32_t point_of(std::uint32_t vertex) const { return united_[numbers_[vertex]]; }
  void weld(const annMesh& mesh);
  void unite_near_ones(exaCorners corners);
  void take(exaCorners corners);
  std::optional<Narrow> narrow() const;
  void split(const Narrow& edge, int depth);
  bool is_shorter(const Edge& edge, const Edge& than) const;
  void add(const Edge& edge);

  std::vector<annVector> points_;
  std::vector<std::uint32_t> numbers_;  // of the mesh's vertices among the points
  std::vector<std::uint32_t> united_;   // the point that stands for it: another one, or itself
  std::vector<bool> stands_for_others_;
  std::unordered_map<std::uint64_t, std::uint32_t> splits_;  // the point between the two of an edge
  std::size_t may_add_ = 0;                                  // corners that lie between the ends of an edge
  std::vector<std::uint32_t> corners_, around_;
  std::vector<Edge> open_;
};
