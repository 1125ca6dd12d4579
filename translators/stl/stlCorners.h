#pragma once

#include <array>

#include "annMesh.h"
#include "annWelder.h"

// Collects the corners of triangles into a mesh, welded or each with a separate point. They are added in blocks;
// `finish` adds the last one.
class stlCorners {
 public:
  // Reserves memory for a closed surface of this many triangles.
  stlCorners(annMesh& mesh, bool weld, std::size_t expected_triangles = 0);

  // False when the mesh has too many points.
  bool add(const annVector& point) {
    pending_[count_++] = point;
    return count_ < pending_.size() || flush();
  }
  bool finish() { return flush(); }

  // The number of corners so far.
  std::size_t count() const { return mesh_.corners.size() + count_; }

 private:
  bool flush();

  annMesh& mesh_;
  bool weld_;
  std::size_t expected_corners_;
  annWelder welder_;
  std::array<annVector, 192> pending_;
  std::size_t count_ = 0;
};
