#pragma once

#include <cstddef>
#include <string_view>

// Parsers for the fields of a cache record. Each removes a field from the front of a text. If the text does not begin
// with such a field it is not changed.

// The text between the first "{" and its matching "}". Nested braces are included; braces inside quotes also count.
// False if a "}" precedes the first "{".
bool vln_take_set(std::string_view& text, std::string_view& content);
bool vln_take_string(std::string_view& text, std::string_view& value);
bool vln_take_int(std::string_view& text, int& value);

// Quoted texts between braces. Returns false if there is no set or it contains anything else.
template <typename Use>
bool vln_take_list(std::string_view& text, Use use) {
  std::string_view content;
  if (!vln_take_set(text, content)) return false;
  std::string_view value;
  while (vln_take_string(content, value)) use(value);
  return content.find_first_not_of(" ,") == content.npos;
}
