#include "threemfUnits.h"

#include <utility>

namespace {

constexpr std::pair<std::string_view, velLengthUnit> units[] = {{"micron", velLENGTH_MICROMETRE},
                                                                {"millimeter", velLENGTH_MILLIMETRE},
                                                                {"centimeter", velLENGTH_CENTIMETRE},
                                                                {"inch", velLENGTH_INCH},
                                                                {"foot", velLENGTH_FOOT},
                                                                {"meter", velLENGTH_METRE}};

}  // namespace

std::optional<velLengthUnit> threemf_unit(std::string_view text) {
  for (const auto& [name, unit] : units) {
    if (name == text) return unit;
  }
  return std::nullopt;
}

std::string_view threemf_unit_text(velLengthUnit wanted) {
  for (const auto& [name, unit] : units) {
    if (unit == wanted) return name;
  }
  return {};
}

velLengthUnit threemf_written_unit(velLengthUnit unit) {
  switch (unit) {
    case velLENGTH_UNSPECIFIED:
      return velLENGTH_MILLIMETRE;
    case velLENGTH_KILOMETRE:
      return velLENGTH_METRE;
    case velLENGTH_MICROINCH:
    case velLENGTH_MIL:
      return velLENGTH_INCH;
    case velLENGTH_YARD:
    case velLENGTH_MILE:
      return velLENGTH_FOOT;
    default:
      return unit;
  }
}
