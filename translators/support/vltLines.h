#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The lines of a text, of any length, for formats with one statement per line. Lines end with LF, CR LF or CR. A
// backslash at the end of a line continues it on the next. Comments cannot be continued, because they may end with a
// directory name.
class vltLines {
 public:
  // Skips a byte order mark at the start and null bytes at the end.
  explicit vltLines(std::string_view text);

  // Gets the next line without its end; valid until the next call. False at the end of the text. Text after the last
  // line end counts as a line if it is not empty.
  bool next(std::string_view& line);

  // The number of the first line of the last result of `next`, counted from 1.
  std::size_t line() const { return first_line_; }
  // Bytes read so far.
  std::size_t offset() const { return at_; }

 private:
  std::string_view take_line();
  // The offset of the next CR; `limit` when there is none before it. Searches many lines at once.
  std::size_t next_return(std::size_t limit);

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t next_feed_ = 0;
  std::size_t no_return_before_ = 0;  // there is no CR from `at_` up to here
  std::size_t lines_taken_ = 0;
  std::size_t first_line_ = 0;
  std::string joined_;
};
