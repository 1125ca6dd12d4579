#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "utString.h"

// A piece of a file for a message: quoted, cut to `most` characters, with "?" for control characters and invalid
// UTF-8.
std::string vlt_quoted(std::string_view text, std::size_t most = 40);

// Removes blanks and control characters from both ends.
std::string_view vlt_trimmed(std::string_view text);

// The rest of a line, trimmed and without a trailing comment. A comment starts with a "#" that has a blank or the end
// of the line on both sides, so that "Part #3" is kept.
std::string_view vlt_before_comment(std::string_view text);

// A name from the rest of a line, converted to UTF-8 from UTF-8 or Latin-1.
std::string vlt_name_on_line(std::string_view text);

// A name for one line: trimmed, with blanks for control characters.
std::string vlt_one_line(const utString& name);

// The same for a line that may end in a comment: each "#" that would start a comment becomes "_", so that
// `vlt_name_on_line` reads the whole name.
std::string vlt_name_for_line(const utString& name);

// Makes names unique with a number at the end: "a", "a_2", "a_3".
class vltUniqueNames {
 public:
  std::string unique(std::string name);

 private:
  std::unordered_set<std::string> used_;
  std::unordered_map<std::string, unsigned> last_number_;
};
