#include "annPrecision.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <set>
#include <vector>

namespace {

// 1024 times the distance between neighbouring doubles.
constexpr int digits_of_computed_doubles = std::numeric_limits<double>::digits - 10;

bool are_floats(const annVertices& vertices) {
  for (const annVector& p : vertices.points) {
    for (const double value : {p.x, p.y, p.z}) {
      if (static_cast<double>(static_cast<float>(value)) != value) return false;
    }
  }
  return true;
}

bool are_floats(const annDocument& document) {
  std::set<const annVertices*> seen;
  for (const annPlacedBody& placed : ann_placed_bodies(document)) {
    const annBody& body = placed.node->body;
    if (body.shape) return false;
    if (seen.insert(body.mesh->vertices.get()).second && !are_floats(*body.mesh->vertices)) return false;
  }
  return true;
}

}  // namespace

double ann_coordinate_step(const annDocument& document, const annBox& box) {
  double largest = 0;
  for (const annVector& corner : {box.min, box.max}) {
    for (const double value : {corner.x, corner.y, corner.z}) largest = std::max(largest, std::fabs(value));
  }
  if (!(largest > 0) || !std::isfinite(largest)) return 0;
  const int digits = are_floats(document) ? std::numeric_limits<float>::digits : digits_of_computed_doubles;
  return std::ldexp(1.0, std::ilogb(largest) + 1 - digits);
}

double ann_rounded(double value, double step) {
  if (!(step > 0) || !std::isfinite(step) || !std::isfinite(value) || value == 0) return value;
  // Rounds as decimal text, so that the result is the double nearest to its short decimal form.
  const int power = static_cast<int>(std::ceil(std::log10(step)));
  const int digits = static_cast<int>(std::floor(std::log10(std::fabs(value)))) - power + 1;
  if (digits < 0) return 0;
  if (digits == 0)
    return std::fabs(value) < std::pow(10.0, power) / 2 ? 0 : std::copysign(std::pow(10.0, power), value);
  if (digits > std::numeric_limits<double>::max_digits10) return value;
  char text[64];
  const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, digits - 1);
  double rounded = value;
  std::from_chars(text, written.ptr, rounded);
  return rounded;
}
