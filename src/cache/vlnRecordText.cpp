#include "vlnRecordText.h"

#include <charconv>

namespace {

std::size_t behind_separators(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size() && (text[at] == ' ' || text[at] == ',')) ++at;
  return at;
}

std::string_view without_separators(std::string_view text) {
  return text.substr(behind_separators(text));
}

}  // namespace

bool vln_take_set(std::string_view& text, std::string_view& content) {
  // There are few braces, so searching for each kind is faster than checking every character.
  std::size_t open = text.find('{');
  std::size_t close = text.find('}');
  if (open > close) return false;
  const std::size_t begin = open + 1;
  for (int depth = 0; close != text.npos;) {
    if (open < close) {
      ++depth;
      open = text.find('{', open + 1);
    } else if (--depth > 0) {
      close = text.find('}', close + 1);
    } else {
      content = text.substr(begin, close - begin);
      text.remove_prefix(close + 1);
      return true;
    }
  }
  return false;
}

bool vln_take_string(std::string_view& text, std::string_view& value) {
  const std::size_t quote = behind_separators(text);
  if (quote == text.size() || text[quote] != '"') return false;
  const std::size_t closing = text.find('"', quote + 1);
  if (closing == text.npos) return false;
  value = text.substr(quote + 1, closing - quote - 1);
  text.remove_prefix(closing + 1);
  return true;
}

bool vln_take_int(std::string_view& text, int& value) {
  const std::string_view rest = without_separators(text);
  const std::string_view token = rest.substr(0, rest.find_first_of(",}"));
  int number = 0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), number);
  if (error != std::errc()) return false;
  if (without_separators(token.substr(static_cast<std::size_t>(end - token.data()))) != "") return false;
  value = number;
  text = rest.substr(token.size());
  return true;
}
