#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "annColour.h"
#include "exaExport.h"

// The colours that faces of a shape have of their own. Faces are counted in the order in which the shape is explored.
struct VELEXACT_API exaFaceColours {
  static constexpr std::uint32_t none = UINT32_MAX;

  std::vector<annColour> colours;
  std::vector<std::uint32_t> of_face;  // a number in `colours` or `none`; no numbers at all without colours

  bool empty() const { return of_face.empty(); }
  const annColour* colour(std::size_t face) const {
    return face < of_face.size() && of_face[face] != none ? &colours[of_face[face]] : nullptr;
  }

  // Appends the colour of the next face; null for none.
  void add(const annColour* colour);
  // After the last face: forgets the numbers when no face has a colour.
  void settle();

  // The text that stands behind the kernel's bytes of a shape; empty without colours.
  std::string text() const;
  // Looks for that text at the end of the bytes; without colours when there is none or it does not fit `faces`.
  static exaFaceColours from_text(std::string_view bytes, std::size_t faces);

 private:
  std::map<std::array<std::uint32_t, 4>, std::uint32_t> numbers_;  // of the bits of colours, until they are settled
};
