#include "gltfUri.h"

#include <array>
#include <cstdint>

namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t no_letter = 0xFF;

constexpr std::array<std::uint8_t, 256> values = [] {
  std::array<std::uint8_t, 256> result{};
  result.fill(no_letter);
  for (std::size_t i = 0; i < letters.size(); ++i) {
    result[static_cast<unsigned char>(letters[i])] = static_cast<std::uint8_t>(i);
  }
  return result;
}();

std::uint32_t value_of(char c) {
  return values[static_cast<unsigned char>(c)];
}

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

int hexadecimal(char c) {
  if (is_digit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::optional<std::string> gltf_percent_decoded(std::string_view uri) {
  std::string result;
  for (std::size_t i = 0; i < uri.size(); ++i) {
    if (uri[i] != '%') {
      result += uri[i];
      continue;
    }
    const int high = i + 2 < uri.size() ? hexadecimal(uri[i + 1]) : -1;
    const int low = i + 2 < uri.size() ? hexadecimal(uri[i + 2]) : -1;
    if (high < 0 || low < 0) return std::nullopt;
    result += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return result;
}

std::string gltf_percent_encoded(std::string_view name) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (char c : name) {
    if (is_letter(c) || is_digit(c) || c == '-' || c == '.' || c == '_' || c == '~') {
      result += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    result += {'%', digits[byte / 16], digits[byte % 16]};
  }
  return result;
}

bool gltf_has_scheme(std::string_view uri) {
  if (uri.empty() || !is_letter(uri.front())) return false;
  for (char c : uri) {
    if (c == ':') return true;
    if (!is_letter(c) && !is_digit(c) && c != '+' && c != '-' && c != '.') return false;
  }
  return false;
}

std::optional<std::string_view> gltf_base64_in(std::string_view uri) {
  constexpr std::string_view mark = ";base64";
  if (!uri.starts_with("data:")) return std::nullopt;
  const std::size_t comma = uri.find(',');
  if (comma == uri.npos || !uri.substr(0, comma).ends_with(mark)) return std::nullopt;
  return uri.substr(comma + 1);
}

bool gltf_decode_base64(std::string_view text, std::string& bytes, std::size_t& wrong_at) {
  std::size_t size = text.size();
  while (size > 0 && text.size() - size < 2 && text[size - 1] == '=') --size;
  wrong_at = size;
  if (size % 4 == 1 || (size < text.size() && text.size() % 4 != 0)) return false;
  bytes.resize(size / 4 * 3 + (size % 4 == 0 ? 0 : size % 4 - 1));

  char* to = bytes.data();
  std::uint32_t seen = 0;  // greater than 63 after an invalid character
  std::size_t i = 0;
  for (; i + 4 <= size; i += 4) {
    const std::uint32_t a = value_of(text[i]), b = value_of(text[i + 1]), c = value_of(text[i + 2]),
                        d = value_of(text[i + 3]);
    seen |= a | b | c | d;
    const std::uint32_t three = a << 18 | b << 12 | c << 6 | d;
    *to++ = static_cast<char>(three >> 16);
    *to++ = static_cast<char>(three >> 8);
    *to++ = static_cast<char>(three);
  }
  std::uint32_t rest = 0;
  for (std::size_t k = i; k < size; ++k) {
    seen |= value_of(text[k]);
    rest |= value_of(text[k]) << (18 - 6 * (k - i));
  }
  if (size - i >= 2) *to++ = static_cast<char>(rest >> 16);
  if (size - i == 3) *to++ = static_cast<char>(rest >> 8);
  if (seen < 64) return true;
  for (wrong_at = 0; value_of(text[wrong_at]) != no_letter;) ++wrong_at;
  return false;
}

void gltf_encode_base64(std::string_view bytes, char*& to) {
  auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])); };
  std::size_t i = 0;
  for (; i + 3 <= bytes.size(); i += 3) {
    const std::uint32_t three = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
    *to++ = letters[three >> 18];
    *to++ = letters[three >> 12 & 63];
    *to++ = letters[three >> 6 & 63];
    *to++ = letters[three & 63];
  }
  if (i == bytes.size()) return;
  const bool two = bytes.size() - i == 2;
  const std::uint32_t three = byte(i) << 16 | (two ? byte(i + 1) << 8 : 0);
  *to++ = letters[three >> 18];
  *to++ = letters[three >> 12 & 63];
  *to++ = two ? letters[three >> 6 & 63] : '=';
  *to++ = '=';
}
