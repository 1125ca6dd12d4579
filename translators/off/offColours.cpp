#include "offColours.h"

#include <algorithm>
#include <cmath>

#include "vltColours.h"

namespace {

constexpr float no_opacity = -1;

}  // namespace

annColour offColours::take(std::span<const double> components, std::string_view text) {
  std::array<float, 4> c{0, 0, 0, no_opacity};
  for (std::size_t i = 0; i < components.size(); ++i) {
    any_odd_ = any_odd_ || !std::isfinite(components[i]);
    c[i] = std::isfinite(components[i]) ? static_cast<float>(std::clamp(components[i], 0.0, 255.0)) : 0.0F;
  }
  any_point_ = any_point_ || text.find_first_of(".eE") != text.npos;
  any_without_opacity_ = any_without_opacity_ || components.size() < 4;
  most_ = std::max({most_, c[0], c[1], c[2]});
  most_opacity_ = std::max(most_opacity_, c[3]);
  return {c[0], c[1], c[2], c[3]};
}

annColour offColours::settled(const annColour& raw) const {
  const float full_opacity = any_point_ ? vlt_full_component(most_opacity_) : most_opacity_ > 1 ? 255.0F : 1.0F;
  const bool fractions =
      any_point_ ? vlt_full_component(most_) == 1 : !any_without_opacity_ && most_ <= 1 && full_opacity == 1;
  const float full = fractions ? 1.0F : 255.0F;
  auto level = [](float value, float whole) { return std::min(value / whole, 1.0F); };
  return {level(raw.red, full), level(raw.green, full), level(raw.blue, full),
          raw.opacity == no_opacity ? 1.0F : level(raw.opacity, full_opacity)};
}
