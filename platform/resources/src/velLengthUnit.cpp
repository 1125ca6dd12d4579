#include "velLengthUnit.h"

#include <cstddef>
#include <iterator>
#include <string_view>

#include "coResourceValue.h"

namespace {

struct Length {
  const char* name;
  const char* symbol;
  const char* abbreviation;  // in ASCII
  // In tenths of a nanometre every length is an integer, so ratios have the accuracy of a double. The inch is the
  // international inch; foot, yard and mile are multiples of it.
  double whole;
};

// In the order of the values.
constexpr Length lengths[] = {
    {"unspecified", "", "", 1e7},
    {"micrometre", "\u00b5m", "um", 1e4},
    {"millimetre", "mm", "mm", 1e7},
    {"centimetre", "cm", "cm", 1e8},
    {"metre", "m", "m", 1e10},
    {"kilometre", "km", "km", 1e13},
    {"microinch", "\u00b5in", "uin", 254},
    {"mil", "mil", "mil", 254e3},
    {"inch", "in", "in", 254e6},
    {"foot", "ft", "ft", 3048e6},
    {"yard", "yd", "yd", 9144e6},
    {"mile", "mi", "mi", 1609344e7},
};

// Null for a number that is not a unit.
const Length* length_of(velLengthUnit unit) {
  const auto position = static_cast<std::size_t>(unit);
  return position < std::size(lengths) ? &lengths[position] : nullptr;
}

double whole_length(velLengthUnit unit) {
  const Length* length = length_of(unit);
  return length ? length->whole : 0;
}

}  // namespace

void velLengthUnit_strings(utStringcoDList& names) {
  for (const Length& length : lengths) names.append(length.name);
}

void velLengthUnit_abbreviations(utStringcoDList& abbreviations) {
  for (const Length& length : lengths) {
    if (*length.abbreviation && length.abbreviation != std::string_view(length.name)) {
      abbreviations.append(length.abbreviation);
    }
  }
}

bool co_value_from_text(const utString& text, velLengthUnit& value) {
  for (const auto spelling : {&Length::name, &Length::abbreviation, &Length::symbol}) {
    utStringcoDList spellings;
    for (const Length& length : lengths) spellings.append(length.*spelling);
    const int position = text.empty() ? -1 : co_position_of_name(spellings, text);
    if (position < 0) continue;
    value = static_cast<velLengthUnit>(position);
    return true;
  }
  return false;
}

utString co_value_to_text(velLengthUnit value) {
  return vel_length_name(value);
}

const char* vel_length_name(velLengthUnit unit) {
  const Length* length = length_of(unit);
  return length ? length->name : "";
}

const char* vel_length_symbol(velLengthUnit unit) {
  const Length* length = length_of(unit);
  return length ? length->symbol : "";
}

double vel_metres(velLengthUnit unit) {
  return whole_length(unit) / 1e10;
}

double vel_length_ratio(velLengthUnit from, velLengthUnit to) {
  const double numerator = whole_length(from);
  const double denominator = whole_length(to);
  return numerator == 0 || denominator == 0 ? 1.0 : numerator / denominator;
}
