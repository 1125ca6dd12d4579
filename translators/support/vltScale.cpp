#include "vltScale.h"

#include <cmath>

namespace {

double converted(double scale, velLengthUnit unit, const annDocument& document, velabsOutput& output) {
  if (unit == document.unit) return scale;
  if (document.unit != velLENGTH_UNSPECIFIED) return scale * vel_length_ratio(document.unit, unit);
  const velLengthUnit other = unit == velLENGTH_INCH ? velLENGTH_MILLIMETRE : velLENGTH_INCH;
  output.message(
      velabsWARNING,
      utString("the model has no length unit, so its numbers are taken to be in ") + co_value_to_text(unit) +
          " already; if they are not, name their unit, for instance with --in length-unit=" + co_value_to_text(other));
  return scale;
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

std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit) {
  std::optional<double> scale = vlt_scale(resources, output);
  const auto wanted = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  unit = wanted == velLENGTH_UNSPECIFIED ? document.unit : wanted;
  if (!scale || unit == document.unit) return scale;
  return converted(*scale, unit, document, output);
}

std::optional<double> vlt_output_scale_to(velLengthUnit unit, const velTableInstance& resources,
                                          const annDocument& document, velabsOutput& output) {
  const std::optional<double> scale = vlt_scale(resources, output);
  if (!scale) return scale;
  return converted(*scale, unit, document, output);
}
