#include "gltfWork.h"

namespace {

constexpr std::size_t always_allowed = std::size_t{1} << 20;
constexpr std::size_t elements_for_a_byte = 4;

}  // namespace

bool gltfWork::allows(std::size_t elements) {
  const std::size_t most = always_allowed + elements_for_a_byte * bytes_;
  if (elements > most || elements_ > most - elements) return false;
  elements_ += elements;
  return true;
}

bool gltfWork::goes_on(double share) {
  output_.progress(static_cast<int>(100 * share));
  return !output_.cancelled();
}
