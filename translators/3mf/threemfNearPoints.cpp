#include "threemfNearPoints.h"

#include <cmath>
#include <functional>

std::size_t threemfNearPoints::CellHash::operator()(const annVector& cell) const {
  std::size_t hash = 0;
  for (double value : {cell.x, cell.y, cell.z}) {
    hash = (hash ^ std::hash<double>()(value)) * 0x9e3779b97f4a7c15;
    hash ^= hash >> 32;
  }
  return hash;
}

annVector threemfNearPoints::cell_of(const annVector& point, double offset) const {
  auto index = [&](double coordinate) { return std::floor((coordinate + offset) / (2 * tolerance_)); };
  return {index(point.x), index(point.y), index(point.z)};
}

void threemfNearPoints::search(const annVector& cell, const annVector& point, std::uint32_t& nearest,
                               double& distance) const {
  const auto found = cells_.find(cell);
  if (found == cells_.end()) return;
  for (std::uint32_t number = found->second; number != none; number = next_[number]) {
    const annVector& other = points_[number];
    const double d = std::hypot(other.x - point.x, other.y - point.y, other.z - point.z);
    if (d < distance || (d == distance && number < nearest)) {
      nearest = number;
      distance = d;
    }
  }
}

std::uint32_t threemfNearPoints::number_of(const annVector& point) {
  const annVector low = cell_of(point, -tolerance_), high = cell_of(point, tolerance_);
  std::uint32_t nearest = none;
  double distance = tolerance_;
  for (int corner = 0; corner < 8; ++corner) {
    const bool x = corner & 1, y = corner & 2, z = corner & 4;
    if ((x && low.x == high.x) || (y && low.y == high.y) || (z && low.z == high.z)) continue;
    search({x ? high.x : low.x, y ? high.y : low.y, z ? high.z : low.z}, point, nearest, distance);
  }
  if (nearest != none) return nearest;
  const auto number = static_cast<std::uint32_t>(points_.size());
  points_.push_back(point);
  const auto [cell, added] = cells_.try_emplace(cell_of(point, 0), number);
  next_.push_back(added ? none : cell->second);
  cell->second = number;
  return number;
}
