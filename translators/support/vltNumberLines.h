#pragma once

#include <cstddef>
#include <string_view>

#include "vltWords.h"

// The lines of a text that consists mostly of numbers, for formats in which line breaks matter. Blank lines are
// skipped. "#" starts a comment up to the end of the line. Lines end with LF, CR LF or CR.
//
//   while (lines.next_line()) {
//     double x;
//     while (lines.take(x)) use(x);
//     if (!lines.at_line_end()) complain(lines.take_word());
//   }
class vltNumberLines {
 public:
  // `first_line` is the number of the first line of the text.
  explicit vltNumberLines(std::string_view text, std::size_t first_line = 1)
      : begin_(text.data()), at_(begin_), end_(begin_ + vlt_without_padding(text).size()), line_(first_line) {}

  // Skips the rest of the current line and goes to the next line that is not blank; the first call goes to the first
  // one. False at the end of the text.
  bool next_line();

  // True when only blanks and a comment are left on the line.
  bool at_line_end() {
    while (at_ != end_ && vlt_is_blank(*at_)) ++at_;
    return at_ == end_ || ends_data(*at_);
  }

  // Reads the next word of the line as a number. False, without reading it, at the end of the line or for another
  // word.
  bool take(double& value);
  // The same for integers; "3.0" is one.
  bool take(long long& value) {
    if (at_line_end()) return false;
    const bool negative = *at_ == '-';
    const char* const first = at_ + (negative ? 1 : 0);
    const char* p = first;
    long long number = 0;
    for (; p != end_ && *p >= '0' && *p <= '9' && p - first < 18; ++p) number = 10 * number + (*p - '0');
    if (p == first || !ends_word(p)) return take_odd_whole(value);
    value = negative ? -number : number;
    at_ = p;
    return true;
  }
  // Reads the next word of any kind; empty at the end of the line.
  std::string_view take_word();

  // The rest of the current line and of the text.
  std::string_view rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }

  // Skips bytes, which must not contain a line break.
  void skip(std::size_t bytes) { at_ += bytes; }

  std::size_t line() const { return line_; }
  // Bytes read so far.
  std::size_t offset() const { return static_cast<std::size_t>(at_ - begin_); }

 private:
  static bool ends_line(char c) { return c == '\n' || c == '\r'; }
  static bool ends_data(char c) { return ends_line(c) || c == '#'; }
  bool ends_word(const char* p) const { return p == end_ || vlt_is_blank(*p) || ends_data(*p); }
  bool take_odd_whole(long long& value);

  const char* begin_;
  const char* at_;
  const char* end_;
  std::size_t line_;
  bool in_line_ = false;
};
