#pragma once

#include <cstddef>
#include <string_view>

// Scanning functions for text that may end anywhere.

inline bool vlu_is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

inline void vlu_skip_blanks(std::string_view& text) {
  while (!text.empty() && vlu_is_blank(text.front())) text.remove_prefix(1);
}

inline void vlu_skip_space(std::string_view& text) {
  while (!text.empty() && (vlu_is_blank(text.front()) || text.front() == '\n')) text.remove_prefix(1);
}

// Removes one line with its break (LF, CR LF or a lone CR). Returns the line without the break.
inline std::string_view vlu_take_line(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end);
  if (text.starts_with("\r\n")) {
    text.remove_prefix(2);
  } else if (!text.empty()) {
    text.remove_prefix(1);
  }
  return line;
}

// Removes the first word of a line and the blanks before it; empty at the end of the line.
inline std::string_view vlu_take_word(std::string_view& line) {
  vlu_skip_blanks(line);
  std::size_t end = 0;
  while (end < line.size() && !vlu_is_blank(line[end]) && line[end] != '\n') ++end;
  const std::string_view word = line.substr(0, end);
  line.remove_prefix(end);
  return word;
}

// Skips blank lines and lines that begin with "#".
inline void vlu_skip_comments(std::string_view& text) {
  for (;;) {
    vlu_skip_space(text);
    if (!text.starts_with('#')) return;
    vlu_take_line(text);
  }
}
