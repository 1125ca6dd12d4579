#include "threemfText.h"

#include <charconv>

#include "apNumberText.h"
#include "vltUtf8.h"

namespace {

// The length of the UTF-8 character at the start; 0 when it is invalid or XML cannot store it.
std::size_t character_length(std::string_view text) {
  const char c = text.front();
  if (c >= 0 && c < 0x20) return c == '\t' || c == '\n' || c == '\r' ? 1 : 0;
  const bool is_no_character = text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
  return is_no_character ? 0 : vlt_utf8_size(text);
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
      // Unescaped, it would be read as a blank.
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
