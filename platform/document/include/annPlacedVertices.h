#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "annTransform.h"
#include "annVertices.h"
#include "apExport.h"

// Numbers the distinct pairs of vertices and placement, so that vertices which several bodies share with the same
// placement are counted, or written, once. The vertices are not owned and must outlive this object.
class VELPLATFORM_API annPlacedVertices {
 public:
  // The number of a pair, counted from 0 in the order of the first call for each.
  std::size_t number_of(const annVertices& vertices, const annTransform& placement);

  std::size_t count() const { return pairs_.size(); }

 private:
  struct Pair {
    const annVertices* vertices;
    annTransform placement;
  };
  std::vector<Pair> pairs_;
  std::unordered_multimap<std::uint64_t, std::size_t> by_hash_;
};
