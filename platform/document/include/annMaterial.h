#pragma once

#include "annColour.h"
#include "utString.h"

// The appearance of faces.
struct annMaterial {
  utString name;
  annColour colour;

  friend bool operator==(const annMaterial&, const annMaterial&) = default;
};
