#include "vltScale.h"

#include <cmath>

#include "utBool.h"

namespace {

bool is_millimetre(velLengthUnit unit) {
  return unit == velLENGTH_MILLIMETRE || unit == velLENGTH_UNSPECIFIED;
}

}  // namespace

std::optional<double> vlt_scale(const velTableInstance& resources, velabsOutput& output) {
  const double scale = resources.value<double>("SCALE", 1);
  if (scale > 0 && std::isfinite(scale)) return scale;
  output.message(velabsERROR, "SCALE must be a number greater than 0");
  return std::nullopt;
}

std::optional<double> vlt_input_scale(const velTableInstance& resources, annDocument& document, velabsOutput& output) {
  document.unit = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  return vlt_scale(resources, output);
}

velLengthUnit vlt_stated_unit(const velTableInstance& resources, const annDocument& document) {
  const auto wanted = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  return wanted == velLENGTH_UNSPECIFIED ? document.unit : wanted;
}

std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit) {
  unit = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  if (resources.value<utBool>("CONVERT_UNITS", utTRUE) == utFALSE) {
    if (unit != velLENGTH_UNSPECIFIED) {
      output.message(velabsNOTE, "the option length-unit is ignored because convert-units is 0");
    }
    unit = document.unit;
  } else if (unit == velLENGTH_UNSPECIFIED && document.unit != velLENGTH_UNSPECIFIED) {
    unit = velLENGTH_MILLIMETRE;
  }
  return vlt_output_scale_to(unit, resources, document, output);
}

void vlt_note_unit(const char* format, velLengthUnit unit, const annDocument& document, velabsOutput& output) {
  if (is_millimetre(unit) && is_millimetre(document.unit)) return;
  output.message(velabsNOTE,
                 utString(format) + " holds no length unit: lengths are written in " + co_value_to_text(unit));
}

std::optional<double> vlt_output_scale_to(velLengthUnit unit, const velTableInstance& resources,
                                          const annDocument& document, velabsOutput& output) {
  const std::optional<double> scale = vlt_scale(resources, output);
  if (!scale) return scale;
  if (document.unit == velLENGTH_UNSPECIFIED && unit != velLENGTH_UNSPECIFIED) {
    output.message(velabsNOTE, "the model has no length unit: its numbers count as millimetres");
  }
  return *scale * vel_length_ratio(document.unit, unit);
}
