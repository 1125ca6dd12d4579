#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Blank within a line. A carriage return ends a line, so it is none.
inline bool vlt_is_blank(char c) {
  constexpr std::uint64_t blanks = 1U << '\t' | 1U << '\v' | 1U << '\f' | std::uint64_t{1} << ' ';
  const auto code = static_cast<unsigned char>(c);
  return code <= ' ' && (blanks >> code & 1) != 0;
}

// Takes the next word away from the front of a line; empty at its end.
std::string_view vlt_take_word(std::string_view& line);

// Equal but for the case of the letters A to Z; `lower` is in lower case.
bool vlt_same_word(std::string_view word, std::string_view lower);

// The words of a text, for formats in which a line break is a blank like others. A "#" at the front of a word makes the
// rest of the line a comment. Lines end with LF, CR LF or CR.
class vltWords {
 public:
  // A byte order mark at the front is passed over.
  explicit vltWords(std::string_view text);

  // The next word; empty at the end of the text.
  std::string_view next();

  // Takes the next word when it is this one, in any case.
  bool next_is(std::string_view lower);

  // The next word as a number; false, and nothing taken, when it is none as a whole.
  bool next_number(double& value);

  // What is left of the current line, without its end.
  std::string_view rest_of_line();

  // The line of the word that `next` gave last, counted from 1.
  std::size_t line() const { return line_; }
  // Bytes read so far.
  std::size_t offset() const { return at_; }

 private:
  bool go_to_word();
  void end_line();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

// The same text without the mark that some editors put in front of UTF-8.
std::string_view vlt_without_mark(std::string_view text);
