#pragma once

#include "apLanguage.h"

// Three coordinates of a point, or the components of a direction.
struct annVector {
  double x = 0;
  double y = 0;
  double z = 0;

  friend bool operator==(const annVector&, const annVector&) = default;
  friend annVector operator+(annVector a, annVector b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
  friend annVector operator-(annVector a, annVector b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
  friend annVector operator*(annVector a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
};

inline double ann_dot(annVector a, annVector b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline annVector ann_cross(annVector a, annVector b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
