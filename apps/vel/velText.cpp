#include "velText.h"

#include <algorithm>

std::string vel_printable(std::string_view text) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string printable;
  printable.reserve(text.size());
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= 0x20 && byte != 0x7f) {
      printable += character;
      continue;
    }
    printable += "\\x";
    printable += digits[byte >> 4];
    printable += digits[byte & 15];
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

// Characters of UTF-8 text: every byte but those that continue a character.
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
