#pragma once

#include <cstddef>
#include <vector>

#include "vltPlacedMesh.h"

// Vertices with one placement, and the number of vertices in the lists before them.
struct vltVertexList {
  const annVertices* vertices;
  annTransform placement;
  std::size_t first;
};

// The vertices of several bodies as one sequence. A list that bodies share with the same placement appears once, at
// the first body that uses it. Holds references only: the bodies must outlive it.
class vltVertexLists {
 public:
  explicit vltVertexLists(const std::vector<vltPlacedMesh>& bodies);

  const std::vector<vltVertexList>& all() const { return lists_; }
  // The number of the list that a body uses.
  std::size_t number_of(std::size_t body) const { return list_of_[body]; }
  const vltVertexList& of(std::size_t body) const { return lists_[list_of_[body]]; }
  // The index of a list in `all`.
  std::size_t index_of(const vltVertexList& list) const { return static_cast<std::size_t>(&list - lists_.data()); }
  // The total of all lists.
  std::size_t vertex_count() const { return count_; }

 private:
  std::vector<vltVertexList> lists_;
  std::vector<std::size_t> list_of_;
  std::size_t count_ = 0;
};
