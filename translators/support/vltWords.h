#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// True for a blank within a line. A carriage return is not one, because it ends a line.
inline bool vlt_is_blank(char c) {
  constexpr std::uint64_t blanks = 1U << '\t' | 1U << '\v' | 1U << '\f' | std::uint64_t{1} << ' ';
  const auto code = static_cast<unsigned char>(c);
  return code <= ' ' && (blanks >> code & 1) != 0;
}

// Removes and returns the first word of a line; empty at its end.
std::string_view vlt_take_word(std::string_view& line);

// Compares without regard to the case of A to Z; `lower` must be in lower case.
bool vlt_same_word(std::string_view word, std::string_view lower);

// The words of a text, for formats in which a line break is just a blank. A "#" at the start of a word begins a
// comment up to the end of the line. Lines end with LF, CR LF or CR.
class vltWords {
 public:
  // Skips a byte order mark at the start and null bytes at the end.
  explicit vltWords(std::string_view text);

  // The next word; empty at the end of the text.
  std::string_view next();

  // Reads the next word if it is this one, in any case.
  bool next_is(std::string_view lower);

  // Reads the next word as a number. False, without reading it, when the whole word is not a number.
  bool next_number(double& value);

  // The rest of the current line, without its end.
  std::string_view rest_of_line();

  // The line number of the last result of `next`, counted from 1.
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

// Removes a UTF-8 byte order mark.
std::string_view vlt_without_mark(std::string_view text);

// Removes null bytes at the end of a text: some programs pad files with them to whole blocks. A text of null bytes only
// is returned unchanged.
std::string_view vlt_without_padding(std::string_view text);
