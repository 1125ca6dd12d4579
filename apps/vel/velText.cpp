#include "velText.h"

#include <algorithm>

namespace {

// The length in bytes of the first character of UTF-8 text if it would control the terminal, else 0. These are control
// characters (C0, DEL, C1) and characters that change the direction of text or break lines (U+061C, U+200E, U+200F,
// U+2028 to U+202E, U+2066 to U+2069).
std::size_t control_length(std::string_view text) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0; };
  if (byte(0) < 0x20 || byte(0) == 0x7f) return 1;
  if (byte(0) == 0xc2 && byte(1) >= 0x80 && byte(1) < 0xa0) return 2;
  if (byte(0) == 0xd8 && byte(1) == 0x9c) return 2;
  if (byte(0) != 0xe2) return 0;
  const bool is_general =
      byte(1) == 0x80 && (byte(2) == 0x8e || byte(2) == 0x8f || (byte(2) >= 0xa8 && byte(2) <= 0xae));
  const bool is_isolate = byte(1) == 0x81 && byte(2) >= 0xa6 && byte(2) <= 0xa9;
  return is_general || is_isolate ? 3 : 0;
}

}  // namespace

std::string vel_printable(std::string_view text) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string printable;
  printable.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = control_length(text);
    for (const char character : text.substr(0, length)) {
      const auto byte = static_cast<unsigned char>(character);
      printable += {'\\', 'x', digits[byte >> 4], digits[byte & 15]};
    }
    if (length == 0) printable += text.front();
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return printable;
}

std::string vel_joined(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) {
    if (!joined.empty()) joined += separator;
    joined += text;
  }
  return joined;
}

std::string vel_sentence(std::string text) {
  if (!text.empty() && text.back() != '.' && text.back() != '?') text += '.';
  return text;
}

namespace {

// The number of characters of UTF-8 text: counts the bytes that do not continue a character.
std::size_t width_of(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xc0) != 0x80; }));
}

}  // namespace

std::string vel_columns(const std::vector<std::vector<std::string>>& lines) {
  std::vector<std::size_t> widths;
  for (const auto& line : lines) {
    widths.resize(std::max(widths.size(), line.size()));
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], width_of(vel_printable(line[i])));
  }
  std::string text;
  for (const auto& line : lines) {
    std::string shown;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string cell = vel_printable(line[i]);
      shown += cell;
      shown.append(widths[i] - width_of(cell) + 2, ' ');
    }
    shown.erase(shown.find_last_not_of(' ') + 1);
    text += shown + '\n';
  }
  return text;
}

std::string vel_wrapped(std::string_view text, std::size_t indent) {
  constexpr std::size_t longest = 80;
  std::string wrapped, line;
  const auto end_line = [&] {
    if (!line.empty()) wrapped.append(indent, ' ').append(line).append("\n");
    line.clear();
  };
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string word = vel_printable(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (word.empty()) continue;
    if (!line.empty() && indent + width_of(line) + 1 + width_of(word) > longest) end_line();
    if (!line.empty()) line += ' ';
    line += word;
  }
  end_line();
  return wrapped;
}
