#pragma once

#include <cstddef>
#include <string_view>

// The fields of a cache record, each taken from the front of a text. When the text does not begin with such a field it
// is left as it was.

// The part of a text between its first "{" and the "}" that closes it, nested braces included; braces inside quotes
// count too. Can be asked again after text was appended: it goes on where it stopped.
class vlnBraceScanner {
 public:
  // True once a set is complete. A "}" without a "{" before it ends the search for good.
  bool scan(std::string_view text);

  // What the complete set holds, and where the text behind it begins.
  std::string_view content(std::string_view text) const { return text.substr(begin_, end_ - begin_); }
  std::size_t behind() const { return end_ + 1; }

 private:
  std::size_t position_ = 0;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  int depth_ = 0;
  bool stray_ = false;
};

bool vln_take_set(std::string_view& text, std::string_view& content);
bool vln_take_string(std::string_view& text, std::string_view& value);
bool vln_take_int(std::string_view& text, int& value);

// Quoted texts between braces. False when there is no set or something else stands in it.
template <typename Use>
bool vln_take_list(std::string_view& text, Use use) {
  std::string_view content;
  if (!vln_take_set(text, content)) return false;
  std::string_view value;
  while (vln_take_string(content, value)) use(value);
  return content.find_first_not_of(" ,") == content.npos;
}
