#include "velValidator.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "apNumberText.h"

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

constexpr velValidator::Bounds all_bounds[] = {
    {"SCALE", 0, endless, true, velMSG_TAKES_ABOVE_ZERO, velMSG_RANGE_ABOVE_ZERO},
    {"FACET_LIMIT", 0, endless, true, velMSG_TAKES_ABOVE_ZERO, velMSG_RANGE_ABOVE_ZERO},
    {"DIGITS", 0, 17, false, velMSG_TAKES_DIGITS, velMSG_RANGE_DIGITS},
    {"CHORD_TOLERANCE", 0, endless, false, velMSG_TAKES_FROM_ZERO, velMSG_RANGE_FROM_ZERO},
    {"ANGLE_TOLERANCE", 0, 180, false, velMSG_TAKES_DEGREES, velMSG_RANGE_DEGREES},
    {"JOIN_TOLERANCE", 0, endless, false, velMSG_TAKES_FROM_ZERO, velMSG_RANGE_FROM_ZERO},
    {"WIDTH", 1, 16384, false, velMSG_TAKES_PIXELS, velMSG_RANGE_PIXELS},
    {"HEIGHT", 1, 16384, false, velMSG_TAKES_PIXELS, velMSG_RANGE_PIXELS},
};

struct Words {
  const char* key;
  std::vector<std::string> words;
};

const Words all_words[] = {{"VIEW", {"iso", "front", "back", "left", "right", "top", "bottom"}},
                           {"UP_AXIS", {"auto", "y", "z", "keep"}}};

// "transparent" or "#RRGGBB".
bool is_background(const utString& value) {
  const std::string_view text = value.view();
  return value.case_compare("transparent") ||
         (text.size() == 7 && text.front() == '#' && text.find_first_not_of("0123456789abcdefABCDEF", 1) == text.npos);
}

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

bool velValidator::validate_text(const utString& key, const utString& value) {
  if (key.case_compare("BACKGROUND")) return is_background(value);
  // Curves and points are not supported in any format.
  if (key.case_compare("ENTITY_TYPES")) return !value.case_compare("curves") && !value.case_compare("points");
  const std::vector<std::string> known = words(key);
  return known.empty() ||
         std::any_of(known.begin(), known.end(), [&](const auto& word) { return value.case_compare(utString(word)); });
}

std::vector<std::string> velValidator::words(const utString& key) {
  for (const Words& known : all_words) {
    if (key.case_compare(known.key)) return known.words;
  }
  return {};
}
