#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "annColour.h"
#include "exaExport.h"

// The colours of single faces of a shape. Faces are counted in the order of the kernel's explorer.
struct VELEXACT_API exaFaceColours {
  static constexpr std::uint32_t none = UINT32_MAX;

  std::vector<annColour> colours;
  std::vector<std::uint32_t> of_face;  // an index into `colours` or `none`; empty without colours

  bool empty() const { return of_face.empty(); }
  const annColour* colour(std::size_t face) const {
    return face < of_face.size() && of_face[face] != none ? &colours[of_face[face]] : nullptr;
  }

  // Appends the colour of the next face; null for none.
  void add(const annColour* colour);
  // Call after the last face: clears the indices when no face has a colour.
  void settle();

  // The colours as text, to append to the kernel's bytes of a shape; empty without colours.
  std::string text() const;
  // Parses that text at the end of the bytes. Without colours when it is missing or does not match `faces`.
  static exaFaceColours from_text(std::string_view bytes, std::size_t faces);

 private:
  std::map<std::array<std::uint32_t, 4>, std::uint32_t> numbers_;  // indices by the bits of a colour, until settle()
};
