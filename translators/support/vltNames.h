#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "utString.h"

// A piece of a file as messages show it: in quotes, cut to `most` characters, with "?" for a control character and for
// a byte that is no UTF-8.
std::string vlt_quoted(std::string_view text, std::size_t most = 40);

// Without the blanks and control characters at both ends.
std::string_view vlt_trimmed(std::string_view text);

// The rest of a line: trimmed, and without a comment at its end. A comment begins with a "#" that has blanks (or the
// end of the line) on both sides, so that "Part #3" stays whole.
std::string_view vlt_before_comment(std::string_view text);

// A name from the rest of a line, in UTF-8 whether the file is in that or in Latin 1.
std::string vlt_name_on_line(std::string_view text);

// A name that can stand on one line: trimmed, control characters become blanks.
std::string vlt_one_line(const utString& name);

// The same for a line whose end may be a comment, so that `vlt_name_on_line` gives the whole name back: "_" for each
// "#" that would begin one.
std::string vlt_name_for_line(const utString& name);

// Makes names unique by a number at their end: "a", "a_2", "a_3".
class vltUniqueNames {
 public:
  std::string unique(std::string name);

 private:
  std::unordered_set<std::string> used_;
  std::unordered_map<std::string, unsigned> last_number_;
};
