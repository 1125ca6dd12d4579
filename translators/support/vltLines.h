#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The lines of a text, of any length, for formats in which each line is a statement. Lines end with LF, CR LF or CR; a
// backslash at the end of one continues it on the next, but for comments: they may end in the name of a directory.
class vltLines {
 public:
  // A byte order mark at the front is passed over.
  explicit vltLines(std::string_view text);

  // The next line without its end; valid until the next call. False at the end of the text. The text behind the last
  // line end counts as a line when it is not empty.
  bool next(std::string_view& line);

  // Where the line that `next` gave last begins, counted from 1.
  std::size_t line() const { return first_line_; }
  // Bytes read so far.
  std::size_t offset() const { return at_; }

 private:
  std::string_view take_line();
  // Where the next CR stands, `limit` when none comes before it. Many lines are searched at once.
  std::size_t next_return(std::size_t limit);

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t next_feed_ = 0;
  std::size_t no_return_before_ = 0;  // from `at_` on
  std::size_t lines_taken_ = 0;
  std::size_t first_line_ = 0;
  std::string joined_;
};
