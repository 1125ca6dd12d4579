#include "threemfText.h"

#include <charconv>
#include <cstdint>

#include "apNumberText.h"

namespace {

// The length of the UTF-8 character in front, 0 when there is none or XML cannot hold it.
std::size_t character_length(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (byte(0) < 0x80) return byte(0) >= 0x20 || text[0] == '\t' || text[0] == '\n' || text[0] == '\r' ? 1 : 0;
  const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
  if (byte(0) < 0xC2 || byte(0) > 0xF4 || text.size() < length) return 0;
  std::uint32_t code = byte(0) & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
    code = code << 6 | (byte(i) & 0x3F);
  }
  constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < smallest[length] || code > 0x10FFFF || surrogate || code == 0xFFFE || code == 0xFFFF) return 0;
  return length;
}

}  // namespace

std::string threemf_attribute_text(std::string_view text, bool& replaced) {
  std::string result;
  while (!text.empty()) {
    const std::size_t length = character_length(text);
    const char c = text.front();
    if (length == 0) {
      result += "\xEF\xBF\xBD";
      replaced = true;
    } else if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '"') {
      result += "&quot;";
    } else if (length == 1 && static_cast<unsigned char>(c) < 0x20) {
      // As it stands it would be read as a blank.
      result += "&#" + std::to_string(static_cast<int>(c)) + ";";
    } else {
      result += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return result;
}

char* threemf_write_number(char* to, double value, int digits) {
  if (digits == 0) return ap_write_number(to, value);
  return std::to_chars(to, to + threemf_number_room, value, std::chars_format::general, digits).ptr;
}

std::string threemf_transform_text(const annTransform& transform, double factor) {
  std::string result;
  for (std::size_t i = 0; i < 12; ++i) {
    char room[threemf_number_room];
    const double value = transform.m[i % 3 * 4 + i / 3] * (i < 9 ? 1 : factor);
    if (i > 0) result += ' ';
    result.append(room, threemf_write_number(room, value + 0.0, 0));
  }
  return result;
}
