#include "annExactShape.h"

annExactShape::~annExactShape() = default;

annTolerance annExactShape::least_tolerance() const {
  return {};
}
