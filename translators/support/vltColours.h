#pragma once

// The full value of a colour component in a file that does not declare it, from the maximum component found: 1, or 255
// when the maximum is clearly greater than 1. Rounding makes fractions slightly greater than 1.
constexpr float vlt_full_component(float greatest) {
  constexpr float clearly_greater = 2;
  return greatest > clearly_greater ? 255.0F : 1.0F;
}
