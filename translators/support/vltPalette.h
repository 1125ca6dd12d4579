#pragma once

#include <cstdint>
#include <vector>

#include "annMesh.h"

// Makes one material for each distinct face colour: a flat hash table over the materials of a mesh. No other code may
// append to these materials while the palette is in use.
class vltPalette {
 public:
  // `mesh` must outlive the palette.
  explicit vltPalette(annMesh& mesh) : materials_(mesh.materials) {}

  std::uint32_t number_of(const annColour& colour) {
    // In most files, faces of the same colour follow each other.
    if (last_ < materials_.size() && materials_[last_].colour == colour) return last_;
    return last_ = find(colour);
  }

 private:
  std::uint32_t find(const annColour& colour);
  std::size_t slot_of(const annColour& colour) const;
  void grow();

  std::vector<annMaterial>& materials_;
  std::vector<std::uint32_t> slots_;  // number + 1, 0 = free; a power of two, at most half full
  std::uint32_t last_ = annMesh::no_material;
};
