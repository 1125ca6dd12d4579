#include "stepNumbers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <functional>
#include <vector>

namespace {

// Calls `found` with the text that starts at each entity number, for example "#12=POINT...", until it returns false.
void for_each_definition(std::string_view bytes, const std::function<bool(std::string_view)>& found) {
  bool at_start = true;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char c = bytes[i];
    if (c == '\'') {
      i = std::min(bytes.find('\'', i + 1), bytes.size());
      at_start = false;
    } else if (c == '/' && i + 1 < bytes.size() && bytes[i + 1] == '*') {
      i = std::min(bytes.find("*/", i + 2), bytes.size() - 1) + 1;
    } else if (c == ';') {
      at_start = true;
    } else if (at_start && static_cast<unsigned char>(c) > ' ') {
      at_start = false;
      if (c == '#' && !found(bytes.substr(i + 1))) return;
    }
  }
}

std::uint64_t number_at(std::string_view text) {
  std::uint64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

std::string step_number_fault(std::string_view bytes) {
  std::vector<std::uint64_t> numbers;
  for_each_definition(bytes, [&](std::string_view text) {
    numbers.push_back(number_at(text));
    return true;
  });
  if (std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()) == numbers.end()) return "";
  std::sort(numbers.begin(), numbers.end());
  const auto twice = std::adjacent_find(numbers.begin(), numbers.end());
  if (twice == numbers.end()) return "";

  std::size_t times = 0, place = 0;
  for_each_definition(bytes, [&](std::string_view text) {
    place = static_cast<std::size_t>(text.data() - bytes.data());
    return number_at(text) != *twice || ++times < 2;
  });
  const auto line = 1 + std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(place), '\n');
  return "defines #" + std::to_string(*twice) + " for the second time in line " + std::to_string(line);
}
