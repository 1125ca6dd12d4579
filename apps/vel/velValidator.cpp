#include "velValidator.h"

#include <cmath>
#include <limits>

#include "apNumberText.h"

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

constexpr velValidator::Bounds all_bounds[] = {
    {"SCALE", 0, endless, true, velMSG_TAKES_ABOVE_ZERO},
    {"FACET_LIMIT", 0, endless, true, velMSG_TAKES_ABOVE_ZERO},
    {"DIGITS", 0, 17, false, velMSG_TAKES_DIGITS},
    {"CHORD_TOLERANCE", 0, endless, false, velMSG_TAKES_FROM_ZERO},
    {"ANGLE_TOLERANCE", 0, 180, false, velMSG_TAKES_DEGREES},
    {"WIDTH", 1, 16384, false, velMSG_TAKES_PIXELS},
    {"HEIGHT", 1, 16384, false, velMSG_TAKES_PIXELS},
};

bool is_within_bounds(const utString& key, double number) {
  const velValidator::Bounds* bounds = velValidator::bounds(key);
  if (!bounds) return true;
  return number <= bounds->most && (bounds->without_least ? number > bounds->least : number >= bounds->least);
}

}  // namespace

const velValidator::Bounds* velValidator::bounds(const utString& key) {
  for (const Bounds& bounds : all_bounds) {
    if (key.case_compare(bounds.key)) return &bounds;
  }
  return nullptr;
}

bool velValidator::validate_int(const utString& key, const utString& value) {
  long long number = 0;
  return ap_parse_int(value.view(), number) && number >= std::numeric_limits<int>::min() &&
         number <= std::numeric_limits<int>::max() && is_within_bounds(key, static_cast<double>(number));
}

bool velValidator::validate_double(const utString& key, const utString& value) {
  double number = 0;
  return ap_parse_double(value.view(), number) && std::isfinite(number) && is_within_bounds(key, number);
}
