#include "viewText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "apNumberText.h"
#include "vltUtf8.h"

namespace {

constexpr std::size_t element_size = std::size_t{3} << 22;
constexpr std::size_t line_size = 3 << 14;

template <typename Number>
std::string number_text(Number value) {
  if (!std::isfinite(value)) return "null";
  char text[ap_number_room];
  return {text, ap_write_number(text, value)};
}

template <typename Escape>
std::string escaped(std::string_view text, Escape escape) {
  std::string result;
  while (!text.empty()) {
    const std::size_t size = vlt_utf8_size(text);
    if (size == 1) {
      escape(result, text.front());
    } else if (size > 1) {
      result += text.substr(0, size);
    } else {
      result += "\xEF\xBF\xBD";
    }
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return result;
}

}  // namespace

std::string view_json_text(std::string_view text) {
  return '"' +
         escaped(text,
                 [](std::string& result, char c) {
                   constexpr char digits[] = "0123456789abcdef";
                   const bool plain =
                       c >= 0x20 && c != 0x7f && c != '"' && c != '\\' && c != '<' && c != '>' && c != '&';
                   if (plain) {
                     result += c;
                   } else {
                     result += "\\u00";
                     result += digits[c >> 4 & 15];
                     result += digits[c & 15];
                   }
                 }) +
         '"';
}

std::string view_json_number(double value) {
  return number_text(value);
}
std::string view_json_number(float value) {
  return number_text(value);
}

std::string view_html_text(std::string_view text) {
  return escaped(text, [](std::string& result, char c) {
    switch (c) {
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '&':
        result += "&amp;";
        break;
      default:
        result += c >= 0 && c < 0x20 ? ' ' : c;
    }
  });
}

void viewData::write(std::string_view bytes) {
  if (!left_.empty()) {
    const std::size_t taken = std::min(3 - left_.size(), bytes.size());
    left_ += bytes.substr(0, taken);
    bytes.remove_prefix(taken);
    if (left_.size() < 3) return;
    write_threes(left_);
    left_.clear();
  }
  const std::size_t whole = bytes.size() / 3 * 3;
  write_threes(bytes.substr(0, whole));
  left_ = bytes.substr(whole);
}

void viewData::finish() {
  write_threes(left_);
  if (in_element_ > 0) stream_.write("</script>\n");
}

void viewData::write_threes(std::string_view bytes) {
  while (!bytes.empty()) {
    if (in_element_ == element_size) {
      stream_.write("</script>\n");
      in_element_ = 0;
    }
    if (in_element_ == 0) stream_.write("<script type=\"text/plain\" class=\"data\">");
    const std::string_view piece = bytes.substr(0, std::min(line_size, element_size - in_element_));
    encode(piece);
    in_element_ += piece.size();
    bytes.remove_prefix(piece.size());
  }
}

void viewData::encode(std::string_view bytes) {
  constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  char* const to = stream_.reserve((bytes.size() + 2) / 3 * 4);
  char* end = to;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      *end++ = i + k <= bytes.size() ? digits[bits >> (18 - 6 * k) & 63] : '=';
    }
  }
  stream_.advance(static_cast<std::size_t>(end - to));
}
