#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "annVector.h"
#include "apExport.h"

// Gives exactly equal points the same number, with a flat hash table over the points that it collects. 0 and -0 are
// equal.
class VELPLATFORM_API annWelder {
 public:
  // `points` receives each distinct point once. It must outlive the welder, and other code must not append to it
  // meanwhile. The table has room for `expected` distinct points without growing.
  explicit annWelder(std::vector<annVector>& points, std::size_t expected = 0);

  std::uint32_t number_of(const annVector& point);

  // The numbers of many points, in their order. Much faster than single calls if the table is larger than the cache,
  // because memory is prefetched for a few dozen points at a time.
  void numbers_of(std::span<const annVector> points, std::uint32_t* numbers);

 private:
  std::uint32_t number_at(std::size_t hash, const annVector& point);
  void resize(std::size_t slot_count);

  std::vector<annVector>& points_;
  std::vector<std::uint32_t> slots_;  // number + 1, 0 = free; the size is a power of two, at most half full
  std::size_t mask_ = 0;
};
