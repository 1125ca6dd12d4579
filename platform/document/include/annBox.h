#pragma once

#include <algorithm>

#include "annVector.h"

// An axis-aligned box, including both corners.
struct annBox {
  annVector min;
  annVector max;

  void include(annVector p) {
    min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
    max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
  }
};
