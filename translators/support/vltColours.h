#pragma once

// What a component of a colour counts to in a file that does not say so, given the greatest of them: 1, but 255 when
// that one is clearly greater. Rounding brings fractions a little above 1.
constexpr float vlt_full_component(float greatest) {
  constexpr float clearly_greater = 2;
  return greatest > clearly_greater ? 255.0F : 1.0F;
}
