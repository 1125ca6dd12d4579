#include "apNumberChecks.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace {

// Collects the top bit of `objection` over all elements. The compiler vectorises loops of fixed length over integers,
// but not a search with an early exit or sums of real numbers.
template <typename Bits, typename Element, typename Objection>
bool has_objection(std::span<const Element> elements, Objection objection) {
  constexpr std::size_t block = 256;
  constexpr Bits top = ~(~Bits{0} >> 1);
  Bits found = 0;
  while (elements.size() >= block) {
    for (std::size_t i = 0; i < block; ++i) found |= objection(elements[i]);
    if (found & top) return true;
    elements = elements.subspan(block);
  }
  for (const Element& element : elements) found |= objection(element);
  return (found & top) != 0;
}

// In infinities and not-a-number all exponent bits are one, so adding one to the exponent carries into the sign.
template <typename Bits, typename Number, int mantissa_bits>
bool all_finite(std::span<const Number> numbers) {
  constexpr Bits exponent = (~Bits{0} >> 1) >> mantissa_bits << mantissa_bits;
  return !has_objection<Bits>(
      numbers, [](Number number) { return (std::bit_cast<Bits>(number) & exponent) + (Bits{1} << mantissa_bits); });
}

}  // namespace

bool ap_all_finite(std::span<const double> numbers) {
  return all_finite<std::uint64_t, double, 52>(numbers);
}

bool ap_all_finite(std::span<const float> numbers) {
  return all_finite<std::uint32_t, float, 23>(numbers);
}

bool ap_all_at_most(std::span<const std::uint32_t> numbers, std::uint32_t most) {
  constexpr std::uint32_t top = std::uint32_t{1} << 31;
  if (most >= top) return std::all_of(numbers.begin(), numbers.end(), [=](std::uint32_t n) { return n <= most; });
  // The top bit is set in a number above `most` or in the difference.
  return !has_objection<std::uint32_t>(numbers, [=](std::uint32_t number) { return number | (most - number); });
}
