#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "annMesh.h"
#include "velabsOutput.h"

// The colours in the two attribute bytes of each triangle of binary files. The format does not define them; two
// conventions are in use, described in encyclopedia articles on the format ("colour in binary STL"):
//
// - Bit 15 set: the triangle has a colour, red in bits 10 to 14, green in 5 to 9, blue in 0 to 4, each 0 to 31. With
//   bit 15 clear it has none.
// - The header has "COLOR=" and four bytes red, green, blue, opacity: the colour of the whole model. A triangle with
//   bit 15 clear has a separate colour, red in bits 0 to 4, green in 5 to 9, blue in 10 to 14; with bit 15 set it has
//   the colour of the model.
//
// If all attribute bytes are 0, there are no colours in either convention. Other values without any colour are private
// data of the writer.
class stlColourReader {
 public:
  // `mesh` receives the materials; its corners are only used by finish().
  stlColourReader(std::string_view remarks, annMesh& mesh);

  // The colour of the whole model, if the header has one.
  std::optional<annColour> whole() const { return whole_; }

  // Call for each triangle in order.
  void take(std::size_t triangle, std::uint16_t attribute) {
    if (attribute != 0 || whole_) take_colour(triangle, attribute);
  }

  // Call when the mesh has all triangles. Removes materials if the attribute bytes were not colours. True when
  // attribute bytes were ignored.
  bool finish();

 private:
  void take_colour(std::size_t triangle, std::uint16_t attribute);

  annMesh& mesh_;
  std::optional<annColour> whole_;
  bool any_attribute_ = false;
  std::vector<std::uint32_t> material_of_;  // for each of the 32768 colours; allocated for the first one
};

// The attribute bytes of a colour in the first convention. Opacity is lost.
std::uint16_t stl_attribute(const annColour& colour);
