#pragma once

#include <algorithm>

#include "annVector.h"

// A box along the axes, both corners included.
struct annBox {
  annVector min;
  annVector max;

  void include(annVector p) {
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
  }
};
