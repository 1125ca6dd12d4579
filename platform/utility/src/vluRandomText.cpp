#include <sys/random.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "vluFileHelpers.h"

namespace {

// Nearly always enough for one text; a system call costs more than the bytes.
using Bytes = std::array<unsigned char, 32>;

Bytes random_bytes() {
  Bytes bytes;
  if (getrandom(bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size())) return bytes;
  std::random_device device;
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(device());
  return bytes;
}

}  // namespace

utString vlu_random_text() {
  constexpr std::string_view characters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
  constexpr std::size_t length = 16;
  std::string text;
  while (text.size() < length) {
    for (const unsigned char byte : random_bytes()) {
      // Skip values beyond the table, so that each character is equally likely.
      const std::size_t choice = byte & 0x3F;
      if (choice < characters.size() && text.size() < length) text += characters[choice];
    }
  }
  return text;
}
