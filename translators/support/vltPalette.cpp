#include "vltPalette.h"

#include <bit>

namespace {

constexpr std::size_t first_slots = 256;

std::uint64_t hash_of(const annColour& c) {
  std::uint64_t hash = 0;
  for (float part : {c.red, c.green, c.blue, c.opacity}) {
    hash = (hash ^ std::bit_cast<std::uint32_t>(part + 0.0F)) * 0x9e3779b97f4a7c15;  // adding 0 turns -0 into 0
    hash ^= hash >> 29;
  }
  return hash;
}

}  // namespace

std::uint32_t vltPalette::find(const annColour& colour) {
  if (slots_.size() < 2 * (materials_.size() + 1)) grow();
  std::uint32_t& slot = slots_[slot_of(colour)];
  if (slot == 0) {
    materials_.push_back({{}, colour});
    slot = static_cast<std::uint32_t>(materials_.size());
  }
  return slot - 1;
}

std::size_t vltPalette::slot_of(const annColour& colour) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = hash_of(colour) & mask;
  while (slots_[at] != 0 && materials_[slots_[at] - 1].colour != colour) at = (at + 1) & mask;
  return at;
}

void vltPalette::grow() {
  slots_.assign(slots_.empty() ? first_slots : 2 * slots_.size(), 0);
  for (std::size_t i = 0; i < materials_.size(); ++i) {
    slots_[slot_of(materials_[i].colour)] = static_cast<std::uint32_t>(i + 1);
  }
}
