#pragma once

#include <array>

#include "annVector.h"
#include "apExport.h"

// An affine placement: three rows of a 4x4 matrix, the fourth being 0 0 0 1. It maps a column vector, so
// x' = m[0] x + m[1] y + m[2] z + m[3].
struct VELPLATFORM_API annTransform {
  std::array<double, 12> m{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0};

  static annTransform scaling(double factor);

  bool is_identity() const { return *this == annTransform(); }
  // True if it turns right-handed into left-handed, so that faces must be reversed.
  bool mirrors() const;
  // The maximum factor by which it scales lengths along an axis; 0 when that is not finite.
  double largest_scale() const;

  annVector point(annVector p) const {
    return {m[0] * p.x + m[1] * p.y + m[2] * p.z + m[3], m[4] * p.x + m[5] * p.y + m[6] * p.z + m[7],
            m[8] * p.x + m[9] * p.y + m[10] * p.z + m[11]};
  }
  // A transformed surface normal, of length 1; the null vector if the placement flattens it.
  annVector normal(annVector n) const;

  // Applies `inner` first, then `outer`.
  friend VELPLATFORM_API annTransform operator*(const annTransform& outer, const annTransform& inner);
  friend bool operator==(const annTransform&, const annTransform&) = default;
};
