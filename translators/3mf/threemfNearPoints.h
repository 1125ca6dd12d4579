#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "annVector.h"

// Gives a point within the tolerance of earlier ones the index of the nearest. Points are only compared with points
// that were added, so a chain of near points does not collapse. The points are in a grid whose cells are twice the
// tolerance wide: at most eight cells are searched for each point.
class threemfNearPoints {
 public:
  // `points` receives each point that gets a new index, and must outlive this object. The tolerance must be greater
  // than 0 and not below the precision of the coordinates.
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
  std::unordered_map<annVector, std::uint32_t, CellHash> cells_;  // the last point of each cell
  std::vector<std::uint32_t> next_;                               // the next point in the same cell
};
