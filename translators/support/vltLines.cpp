#include "vltLines.h"

#include <algorithm>

#include "vltWords.h"

namespace {

bool is_comment(std::string_view line) {
  return vlt_take_word(line).starts_with('#');
}

}  // namespace

vltLines::vltLines(std::string_view text)
    : text_(vlt_without_padding(text)), at_(text.size() - vlt_without_mark(text).size()) {}

bool vltLines::next(std::string_view& line) {
  if (at_ >= text_.size()) return false;
  line = take_line();
  first_line_ = lines_taken_;
  if (!line.ends_with('\\') || is_comment(line)) return true;
  joined_.clear();
  while (line.ends_with('\\')) {
    joined_.append(line.substr(0, line.size() - 1)).push_back(' ');
    line = at_ < text_.size() ? take_line() : std::string_view();
  }
  joined_.append(line);
  line = joined_;
  return true;
}

std::string_view vltLines::take_line() {
  // The next LF is remembered; otherwise a text with only CR would be searched to its end for each line.
  if (next_feed_ < at_ || lines_taken_ == 0) next_feed_ = std::min(text_.find('\n', at_), text_.size());
  const std::size_t begin = at_;
  const std::size_t end = next_return(next_feed_);
  at_ = end;
  if (text_.substr(at_).starts_with("\r\n")) ++at_;
  if (at_ < text_.size()) ++at_;
  ++lines_taken_;
  return text_.substr(begin, end - begin);
}

std::size_t vltLines::next_return(std::size_t limit) {
  constexpr std::size_t block = std::size_t{1} << 14;
  no_return_before_ = std::max(no_return_before_, at_);
  while (no_return_before_ < limit) {
    const std::size_t found = text_.substr(no_return_before_, block).find('\r');
    no_return_before_ += std::min(found, block);
    if (found != text_.npos) break;
  }
  return std::min(no_return_before_, limit);
}
