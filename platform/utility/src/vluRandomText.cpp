#include <sys/random.h>

#include <random>

#include "vluFileHelpers.h"

namespace {

unsigned char random_byte() {
  unsigned char byte;
  if (getrandom(&byte, 1, 0) == 1) return byte;
  static thread_local std::random_device device;
  return static_cast<unsigned char>(device());
}

}  // namespace

utString vlu_random_text() {
  constexpr std::string_view characters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  std::string text;
  while (text.size() < 16) {
    // Bytes behind the end are thrown again, so that each character is equally likely.
    const std::size_t choice = random_byte() & 0x3F;
    if (choice < characters.size()) text += characters[choice];
  }
  return text;
}
