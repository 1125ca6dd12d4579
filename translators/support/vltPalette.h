#pragma once

#include <cstdint>
#include <vector>

#include "annMesh.h"

// Makes materials of the colours of faces, one for each distinct colour: a flat hash table over the materials of a
// mesh. Nobody else may append to them meanwhile.
class vltPalette {
 public:
  // `mesh` must outlive the palette.
  explicit vltPalette(annMesh& mesh) : materials_(mesh.materials) {}

  std::uint32_t number_of(const annColour& colour) {
    // Faces of one colour stand together in most files.
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
