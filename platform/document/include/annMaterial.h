#pragma once

#include "annColour.h"
#include "utString.h"

// What the faces of one look have in common.
struct annMaterial {
  utString name;
  annColour colour;

  friend bool operator==(const annMaterial&, const annMaterial&) = default;
};
