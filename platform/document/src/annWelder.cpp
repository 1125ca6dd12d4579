#include "annWelder.h"

#include <algorithm>
#include <array>
#include <bit>

#include "apLargePages.h"

namespace {

constexpr std::size_t smallest_table = 64;

std::uint64_t bits(double value) {
  return std::bit_cast<std::uint64_t>(value + 0.0);  // changes -0 to 0
}

std::size_t hash_of(const annVector& point) {
  // Coordinates of a grid differ in few bits; the shift in the middle avoids collisions.
  std::uint64_t hash =
      (bits(point.x) * 0x9e3779b97f4a7c15 + bits(point.y)) * 0xc2b2ae3d27d4eb4f + bits(point.z) * 0xd6e8feb86659fd93;
  hash ^= hash >> 32;
  hash *= 0x9fb21c651e98df25;
  return hash ^ hash >> 32;
}

}  // namespace

annWelder::annWelder(std::vector<annVector>& points, std::size_t expected) : points_(points) {
  resize(std::bit_ceil(expected < smallest_table / 2 ? smallest_table : 2 * expected));
}

std::uint32_t annWelder::number_of(const annVector& point) {
  return number_at(hash_of(point), point);
}

void annWelder::numbers_of(std::span<const annVector> points, std::uint32_t* numbers) {
  constexpr std::size_t batch = 32;
  std::array<std::size_t, batch> hashes;
  for (; !points.empty(); points = points.subspan(std::min(batch, points.size()))) {
    const std::size_t count = std::min(batch, points.size());
    for (std::size_t i = 0; i < count; ++i) {
      hashes[i] = hash_of(points[i]);
      __builtin_prefetch(&slots_[hashes[i] & mask_]);
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (const std::uint32_t used = slots_[hashes[i] & mask_]) __builtin_prefetch(&points_[used - 1]);
    }
    for (std::size_t i = 0; i < count; ++i) *numbers++ = number_at(hashes[i], points[i]);
  }
}

std::uint32_t annWelder::number_at(std::size_t hash, const annVector& point) {
  std::size_t slot = hash & mask_;
  while (const std::uint32_t used = slots_[slot]) {
    if (points_[used - 1] == point) return used - 1;
    slot = (slot + 1) & mask_;
  }
  points_.push_back(point);
  const auto number = static_cast<std::uint32_t>(points_.size());
  slots_[slot] = number;
  if (2 * points_.size() > slots_.size()) resize(2 * slots_.size());
  return number - 1;
}

void annWelder::resize(std::size_t slot_count) {
  slots_ = {};  // free the old table before the new one is allocated
  ap_reserve_large(slots_, slot_count);
  slots_.resize(slot_count);
  mask_ = slot_count - 1;
  for (std::size_t number = 0; number < points_.size(); ++number) {
    std::size_t slot = hash_of(points_[number]) & mask_;
    while (slots_[slot]) slot = (slot + 1) & mask_;
    slots_[slot] = static_cast<std::uint32_t>(number + 1);
  }
}
