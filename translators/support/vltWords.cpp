#include "vltWords.h"

#include <algorithm>

namespace {

bool ends_line(char c) {
  return c == '\n' || c == '\r';
}

}  // namespace

std::string_view vlt_take_word(std::string_view& line) {
  std::size_t begin = 0;
  while (begin < line.size() && vlt_is_blank(line[begin])) ++begin;
  std::size_t end = begin;
  while (end < line.size() && !vlt_is_blank(line[end])) ++end;
  const std::string_view word = line.substr(begin, end - begin);
  line.remove_prefix(end);
  return word;
}

bool vlt_same_word(std::string_view word, std::string_view lower) {
  return std::equal(word.begin(), word.end(), lower.begin(), lower.end(),
                    [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b; });
}

std::string_view vlt_without_mark(std::string_view text) {
  return text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text;
}

vltWords::vltWords(std::string_view text) : text_(text), at_(text.size() - vlt_without_mark(text).size()) {}

std::string_view vltWords::next() {
  while (at_ < text_.size()) {
    const char c = text_[at_];
    if (ends_line(c)) {
      end_line();
    } else if (vlt_is_blank(c)) {
      ++at_;
    } else if (c == '#') {
      rest_of_line();
    } else {
      const std::size_t begin = at_;
      while (at_ < text_.size() && !vlt_is_blank(text_[at_]) && !ends_line(text_[at_])) ++at_;
      return text_.substr(begin, at_ - begin);
    }
  }
  return {};
}

std::string_view vltWords::rest_of_line() {
  const std::size_t begin = at_;
  while (at_ < text_.size() && !ends_line(text_[at_])) ++at_;
  return text_.substr(begin, at_ - begin);
}

void vltWords::end_line() {
  if (text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n') ++at_;
  ++at_;
  ++line_;
}
