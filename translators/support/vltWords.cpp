#include "vltWords.h"

#include <algorithm>
#include <array>

#include "apNumberText.h"

namespace {

enum Kind : unsigned char { of_word, blank, line_end, comment };

constexpr std::array<Kind, 256> kinds = [] {
  std::array<Kind, 256> table{};
  for (unsigned char c : {' ', '\t', '\v', '\f'}) table[c] = blank;
  for (unsigned char c : {'\n', '\r'}) table[c] = line_end;
  table['#'] = comment;
  return table;
}();

Kind kind(char c) {
  return kinds[static_cast<unsigned char>(c)];
}

bool ends_word(char c) {
  return kind(c) == blank || kind(c) == line_end;
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

std::string_view vlt_without_padding(std::string_view text) {
  const std::size_t last = text.find_last_not_of('\0');
  return last == text.npos ? text : text.substr(0, last + 1);
}

vltWords::vltWords(std::string_view text)
    : text_(vlt_without_padding(text)), at_(text.size() - vlt_without_mark(text).size()) {}

std::string_view vltWords::next() {
  if (!go_to_word()) return {};
  const std::size_t begin = at_;
  std::size_t end = begin + 1;
  while (end < text_.size() && !ends_word(text_[end])) ++end;
  at_ = end;
  return text_.substr(begin, end - begin);
}

bool vltWords::next_is(std::string_view lower) {
  if (!go_to_word()) return false;
  const std::size_t end = at_ + lower.size();
  if (end > text_.size() || (end < text_.size() && !ends_word(text_[end]))) return false;
  const std::string_view word = text_.substr(at_, lower.size());
  if (word != lower && !vlt_same_word(word, lower)) return false;
  at_ = end;
  return true;
}

bool vltWords::next_number(double& value) {
  if (!go_to_word()) return false;
  std::string_view rest = text_.substr(at_);
  double number = 0;
  if (!ap_take_double(rest, number) || (!rest.empty() && !ends_word(rest.front()))) return false;
  at_ = text_.size() - rest.size();
  value = number;
  return true;
}

bool vltWords::go_to_word() {
  while (at_ < text_.size()) {
    switch (kind(text_[at_])) {
      case of_word:
        return true;
      case blank:
        ++at_;
        break;
      case line_end:
        end_line();
        break;
      case comment:
        rest_of_line();
        break;
    }
  }
  return false;
}

std::string_view vltWords::rest_of_line() {
  const std::size_t begin = at_;
  while (at_ < text_.size() && kind(text_[at_]) != line_end) ++at_;
  return text_.substr(begin, at_ - begin);
}

void vltWords::end_line() {
  if (text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n') ++at_;
  ++at_;
  ++line_;
}
