#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "annMesh.h"
#include "velabsOutput.h"

// The colours that binary files carry in the two attribute bytes of each triangle. The format knows none; two
// conventions are in use, told by encyclopedias' articles on the format ("colour in binary STL"):
//
// - bit 15 set: the triangle has a colour, red in bits 10 to 14, green in 5 to 9, blue in 0 to 4, each 0 to 31. With
//   bit 15 clear it has none.
// - the remarks hold "COLOR=" and four bytes red, green, blue, opacity: the colour of the whole. A triangle with bit 15
//   clear has its own, red in bits 0 to 4, green in 5 to 9, blue in 10 to 14; with bit 15 set it has that of the whole.
//
// Attribute bytes that are all 0 say nothing in either. Others without a single colour are somebody's own use.
class stlColourReader {
 public:
  // `mesh` gets the materials; what its corners are plays no part before the end.
  stlColourReader(std::string_view remarks, annMesh& mesh);

  // The colour of the whole, where the remarks hold one.
  std::optional<annColour> whole() const { return whole_; }

  // To be called for each triangle in turn.
  void take(std::size_t triangle, std::uint16_t attribute) {
    if (attribute != 0 || whole_) take_colour(triangle, attribute);
  }

  // When the mesh has all its triangles: drops what turned out to be no colours. True when attribute bytes were passed
  // over.
  bool finish();

 private:
  void take_colour(std::size_t triangle, std::uint16_t attribute);

  annMesh& mesh_;
  std::optional<annColour> whole_;
  bool any_attribute_ = false;
  std::vector<std::uint32_t> material_of_;  // for each of the 32768 colours; made for the first one
};

// The attribute bytes of a colour in the first convention. Opacity is lost.
std::uint16_t stl_attribute(const annColour& colour);
