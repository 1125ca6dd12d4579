#include "annPlacedVertices.h"

#include <bit>

namespace {

std::uint64_t hash_of(const annVertices& vertices, const annTransform& placement) {
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(&vertices);
  for (double value : placement.m) {
    hash = (hash ^ std::bit_cast<std::uint64_t>(value + 0.0)) * 0x9e3779b97f4a7c15;
    hash ^= hash >> 29;
  }
  return hash;
}

}  // namespace

std::size_t annPlacedVertices::number_of(const annVertices& vertices, const annTransform& placement) {
  const std::uint64_t hash = hash_of(vertices, placement);
  for (auto [entry, end] = by_hash_.equal_range(hash); entry != end; ++entry) {
    const Pair& pair = pairs_[entry->second];
    if (pair.vertices == &vertices && pair.placement == placement) return entry->second;
  }
  by_hash_.emplace(hash, pairs_.size());
  pairs_.push_back({&vertices, placement});
  return pairs_.size() - 1;
}
