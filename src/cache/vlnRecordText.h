#pragma once

#include <cstddef>
#include <string_view>

// The fields of a cache record, each taken from the front of a text. When the text does not begin with such a field it
// is left as it was.

// What stands between the first "{" and the "}" that closes it, nested braces included; braces inside quotes count too.
// A
// "}" before any "{" spoils the text.
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
