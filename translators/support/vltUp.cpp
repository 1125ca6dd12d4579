#include "vltUp.h"

#include "vltNames.h"
#include "vltWords.h"

namespace {

std::optional<annUpAxis> wanted_up(annUpAxis rule, const velTableInstance& resources, velabsOutput& output) {
  const utString value = resources.value<utString>("UP_AXIS", "auto");
  const std::pair<const char*, annUpAxis> words[] = {
      {"auto", rule}, {"y", annUP_Y}, {"z", annUP_Z}, {"keep", annUP_UNKNOWN}};
  for (const auto& [word, axis] : words) {
    if (vlt_same_word(vlt_trimmed(value.view()), word)) return axis;
  }
  output.message(velabsERROR, utString("UP_AXIS must be auto, y, z or keep, not " + vlt_quoted(value.view())));
  return std::nullopt;
}

}  // namespace

bool vlt_read_up(annUpAxis rule, const velTableInstance& resources, annDocument& document, velabsOutput& output) {
  const std::optional<annUpAxis> up = wanted_up(rule, resources, output);
  document.up = up.value_or(annUP_UNKNOWN);
  return up.has_value();
}

std::optional<annTransform> vlt_written_turn(annUpAxis rule, const velTableInstance& resources,
                                             const annDocument& document, velabsOutput& output) {
  const std::optional<annUpAxis> up = wanted_up(rule, resources, output);
  if (!up) return std::nullopt;
  if (document.up == annUP_UNKNOWN && *up != annUP_UNKNOWN && *up != rule) {
    output.message(velabsNOTE, "the model has no up axis, so it is not turned; --in up-axis names one");
  }
  return ann_turn(document.up, *up);
}
