#include "threemfValues.h"

#include <cmath>

#include "apNumberText.h"
#include "vltWords.h"

namespace {

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = static_cast<char>(c | 0x20);
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

}  // namespace

bool threemf_number(const char* text, double& value) {
  return ap_parse_double(text, value) && std::isfinite(value);
}

bool threemf_index(const char* text, std::uint32_t& value) {
  // Nearly all integers have only a few digits.
  std::uint32_t number = 0;
  int digits = 0;
  for (; digits < 9 && *text >= '0' && *text <= '9'; ++text, ++digits) {
    number = number * 10 + static_cast<std::uint32_t>(*text - '0');
  }
  if (digits > 0 && *text == '\0') {
    value = number;
    return true;
  }
  long long whole = 0;
  // The published limit: one less than the maximum of a signed integer.
  if (!ap_parse_int(text - digits, whole) || whole < 0 || whole > 2147483647) return false;
  value = static_cast<std::uint32_t>(whole);
  return true;
}

std::optional<annColour> threemf_colour(std::string_view text) {
  if ((text.size() != 7 && text.size() != 9) || text.front() != '#') return std::nullopt;
  float parts[4] = {0, 0, 0, 1};
  for (std::size_t i = 1; i < text.size(); i += 2) {
    const int high = hex_digit(text[i]), low = hex_digit(text[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    parts[i / 2] = static_cast<float>(high * 16 + low) / 255;
  }
  return annColour{parts[0], parts[1], parts[2], parts[3]};
}

std::optional<annTransform> threemf_transform(std::string_view text) {
  annTransform result;
  for (int i = 0; i < 12; ++i) {
    double& value = result.m[static_cast<std::size_t>(i % 3 * 4 + i / 3)];
    if (!ap_parse_double(vlt_take_word(text), value) || !std::isfinite(value)) return std::nullopt;
  }
  if (!vlt_take_word(text).empty()) return std::nullopt;
  return result;
}
