#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "annVector.h"
#include "apExport.h"

// Gives points that are exactly equal the same number: a flat hash table over the points that it collects. 0 and -0 are
// equal.
class VELPLATFORM_API annWelder {
 public:
  // `points` receives each distinct point once and must outlive the welder; nobody else may append to it meanwhile.
  // `expected` distinct points fit without growing.
  explicit annWelder(std::vector<annVector>& points, std::size_t expected = 0);

  std::uint32_t number_of(const annVector& point);

  // The numbers of many points, in their order. Far quicker than one by one where the table is larger than the cache:
  // the memory that a few dozen points need is asked for before it is looked at.
  void numbers_of(std::span<const annVector> points, std::uint32_t* numbers);

 private:
  std::uint32_t number_at(std::size_t hash, const annVector& point);
  void resize(std::size_t slot_count);

  std::vector<annVector>& points_;
  std::vector<std::uint32_t> slots_;  // number + 1, 0 = free; a power of two, at most half full
  std::size_t mask_ = 0;
};
