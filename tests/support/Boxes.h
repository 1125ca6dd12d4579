#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "annBox.h"
#include "annTransform.h"

// What tests ask of boxes.

// The length of the diagonal.
inline double size_of(const annBox& box) {
  const annVector diagonal = box.max - box.min;
  return std::sqrt(ann_dot(diagonal, diagonal));
}

inline annBox operator*(const annBox& box, double factor) {
  return {box.min * factor, box.max * factor};
}

// After a turn by right angles.
inline annBox turned(const annBox& box, const annTransform& turn) {
  annBox result{turn.point(box.min), turn.point(box.min)};
  result.include(turn.point(box.max));
  return result;
}

// `difference` is how far the sides may be apart.
inline void expect_same_box(const annBox& actual, const annBox& expected, double difference, const std::string& where) {
  const double one[] = {actual.min.x, actual.min.y, actual.min.z, actual.max.x, actual.max.y, actual.max.z};
  const double two[] = {expected.min.x, expected.min.y, expected.min.z, expected.max.x, expected.max.y, expected.max.z};
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(one[i], two[i], difference) << where << ", side " << i;
}
