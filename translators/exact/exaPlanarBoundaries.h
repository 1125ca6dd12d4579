#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "annMesh.h"
#include "exaPlanarFaces.h"

// The boundaries of a mesh's planar faces in a form that the kernel accepts; a closed mesh stays closed. Points of one
// edge that are closer than the kernel's tolerance are merged. A triangle narrower than the tolerance gets no
// boundary; the neighbour at its long edge gets the corner in between.
class exaPlanarBoundaries {
 public:
  explicit exaPlanarBoundaries(const annMesh& mesh);

  const std::vector<annVector>& points() const { return points_; }

  // The points around a face, from its corners in the mesh; empty when the face is too narrow. Valid until the next
  // call.
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
  std::vector<std::uint32_t> numbers_;  // point index of each mesh vertex
  std::vector<std::uint32_t> united_;   // the point that replaces each point: another one or itself
  std::vector<bool> stands_for_others_;
  std::unordered_map<std::uint64_t, std::uint32_t> splits_;  // the point between the ends of an edge
  std::size_t may_add_ = 0;                                  // how many more points between ends of edges may be added
  std::vector<std::uint32_t> corners_, around_;
  std::vector<Edge> open_;
};
