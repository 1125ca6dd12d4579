#include "vltScale.h"

#include <cmath>

namespace {

std::optional<double> scale_resource(const velTableInstance& resources, velabsOutput& output) {
  const double scale = resources.value<double>("SCALE", 1);
  if (scale > 0 && std::isfinite(scale)) return scale;
  output.message(velabsERROR, "SCALE must be a number greater than 0");
  return std::nullopt;
}

}  // namespace

std::optional<double> vlt_input_scale(const velTableInstance& resources, annDocument& document, velabsOutput& output) {
  document.unit = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  return scale_resource(resources, output);
}

std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit) {
  std::optional<double> scale = scale_resource(resources, output);
  const auto wanted = resources.value<velLengthUnit>("LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  unit = wanted == velLENGTH_UNSPECIFIED ? document.unit : wanted;
  if (!scale || unit == document.unit) return scale;
  if (document.unit == velLENGTH_UNSPECIFIED) {
    output.message(velabsWARNING, utString("the model has no length unit, so its numbers are taken to be in ") +
                                      co_value_to_text(unit) + " already and stay unchanged");
    return scale;
  }
  return *scale * vel_length_ratio(document.unit, unit);
}
