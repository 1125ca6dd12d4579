#include "exaUnits.h"

#include <cmath>

velLengthUnit exa_unit(double millimetres) {
  for (int i = velLENGTH_MICROMETRE; i <= velLENGTH_MILE; ++i) {
    const auto unit = static_cast<velLengthUnit>(i);
    const double known = exa_millimetres(unit);
    if (std::abs(known - millimetres) <= 1e-6 * known) return unit;
  }
  return velLENGTH_UNSPECIFIED;
}

double exa_millimetres(velLengthUnit unit) {
  return unit == velLENGTH_UNSPECIFIED ? 0 : vel_length_ratio(unit, velLENGTH_MILLIMETRE);
}
