#pragma once

#include "apLanguage.h"

// A colour: red, green, blue and opacity from 0 to 1.
struct annColour {
  float red = 0;
  float green = 0;
  float blue = 0;
  float opacity = 1;

  friend bool operator==(const annColour&, const annColour&) = default;
};
