#pragma once

#include <array>
#include <span>
#include <string_view>

#include "annColour.h"

// The colours of the vertices, or of the faces, of one file. Whether their components count to 255 or to 1 is the
// same for all of them, and known when the last one was seen:
//
// - components without a decimal point or exponent count to 255, but opacities to 1 when none is greater; and if all
//   colours have an opacity and no component is above 1, everything counts to 1.
// - with one that has a point or exponent they count to 1, but to 255 when one is clearly greater.
class offColours {
 public:
  // A colour as it stands in the file: three or four components and their text.
  annColour take(std::span<const double> components, std::string_view text);

  // Brings a colour that `take` gave into the range from 0 to 1.
  annColour settled(const annColour& raw) const;

  // A component was no finite number, and taken as 0.
  bool any_odd() const { return any_odd_; }

 private:
  float most_ = 0, most_opacity_ = 0;
  bool any_point_ = false, any_without_opacity_ = false, any_odd_ = false;
};
