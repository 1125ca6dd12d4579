#pragma once

#include <array>
#include <span>
#include <string_view>

#include "annColour.h"

// The colours of the vertices, or of the faces, of one file. Their components are on a scale of 1 or 255, the same for
// all colours, which is known after the last one:
//
// - Components without a decimal point or exponent are on a scale of 255, but opacities on a scale of 1 when none is
//   greater. If all colours have an opacity and no component is greater than 1, all are on a scale of 1.
// - With any point or exponent, components are on a scale of 1, or of 255 when one is clearly greater than 1.
class offColours {
 public:
  // Records a colour from the file: three or four components and their text.
  annColour take(std::span<const double> components, std::string_view text);

  // Converts a colour returned by `take` to the range 0 to 1.
  annColour settled(const annColour& raw) const;

  // True when a component was not finite and became 0.
  bool any_odd() const { return any_odd_; }

 private:
  float most_ = 0, most_opacity_ = 0;
  bool any_point_ = false, any_without_opacity_ = false, any_odd_ = false;
};
