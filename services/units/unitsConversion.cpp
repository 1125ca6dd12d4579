#include "unitsConversion.h"

#include <cstddef>
#include <iterator>
#include <numbers>

namespace {

struct AngleText {
  const char* name;
  const char* symbol;
  double per_turn;
};

constexpr AngleText angle_texts[] = {
    {"degree", "\u00b0", 360},          {"radian", "rad", 2 * std::numbers::pi}, {"gradian", "gon", 400},
    {"arc minute", "\u2032", 360 * 60}, {"arc second", "\u2033", 360 * 60 * 60}, {"turn", "tr", 1},
};

// Null for a number that is not a unit.
const AngleText* text_of(velAngularUnit unit) {
  const auto position = static_cast<std::size_t>(unit);
  return position < std::size(angle_texts) ? &angle_texts[position] : nullptr;
}

}  // namespace

double unitsConversion::convert_length(double value, velLengthUnit from, velLengthUnit to) const {
  // Of a ratio and its inverse use the one above 1, which has the smaller rounding error, so 25.4 mm are exactly one
  // inch.
  const double ratio = vel_length_ratio(from, to);
  return ratio >= 1 ? value * ratio : value / vel_length_ratio(to, from);
}

double unitsConversion::convert_angle(double value, velAngularUnit from, velAngularUnit to) const {
  const AngleText* given = text_of(from);
  const AngleText* wanted = text_of(to);
  if (!given || !wanted || given == wanted) return value;
  return value * wanted->per_turn / given->per_turn;
}

const char* unitsConversion::length_name(velLengthUnit unit) const {
  return vel_length_name(unit);
}

const char* unitsConversion::angle_name(velAngularUnit unit) const {
  const AngleText* text = text_of(unit);
  return text ? text->name : "";
}

const char* unitsConversion::length_symbol(velLengthUnit unit) const {
  return vel_length_symbol(unit);
}

const char* unitsConversion::angle_symbol(velAngularUnit unit) const {
  const AngleText* text = text_of(unit);
  return text ? text->symbol : "";
}
