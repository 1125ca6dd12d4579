#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "annVector.h"

// Gives points within a tolerance of an earlier one the number of the nearest such point. Only points that got a number
// of their own are compared with, so a row of near points does not move together. A grid of cells of twice the
// tolerance holds them: at most eight cells are searched for each point.
class threemfNearPoints {
 public:
  // `points` receives each point that gets a number of its own, and must outlive this. The tolerance is above 0 and not
  // below the precision of the coordinates.
  threemfNearPoints(std::vector<annVector>& points, double tolerance) : points_(points), tolerance_(tolerance) {}

  std::uint32_t number_of(const annVector& point);

 private:
  static constexpr std::uint32_t none = 0xFFFFFFFF;

  struct CellHash {
    std::size_t operator()(const annVector& cell) const;
  };
  annVector cell_of(const annVector& point, double offset) const;
  void search(const annVector& cell, const annVector& point, std::uint32_t& nearest, double& distance) const;

  std::vector<annVector>& points_;
  double tolerance_;
  std::unordered_map<annVector, std::uint32_t, CellHash> cells_;  // the last point of each
  std::vector<std::uint32_t> next_;                               // in the same cell
};
