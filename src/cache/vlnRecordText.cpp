#include "vlnRecordText.h"

#include <charconv>

namespace {

std::string_view without_separators(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == ',')) text.remove_prefix(1);
  return text;
}

}  // namespace

bool vlnBraceScanner::scan(std::string_view text) {
  // Braces are few, so searching for each kind beats looking at every character.
  std::size_t open = text.find('{', position_);
  std::size_t close = text.find('}', position_);
  position_ = text.size();
  while (!stray_ && (open != text.npos || close != text.npos)) {
    if (open < close) {
      if (++depth_ == 1) begin_ = open + 1;
      open = text.find('{', open + 1);
    } else if (depth_ == 0) {
      stray_ = true;
    } else if (--depth_ == 0) {
      end_ = close;
      return true;
    } else {
      close = text.find('}', close + 1);
    }
  }
  return false;
}

bool vln_take_set(std::string_view& text, std::string_view& content) {
  vlnBraceScanner braces;
  if (!braces.scan(text)) return false;
  content = braces.content(text);
  text.remove_prefix(braces.behind());
  return true;
}

bool vln_take_string(std::string_view& text, std::string_view& value) {
  const std::string_view rest = without_separators(text);
  if (!rest.starts_with('"')) return false;
  const std::size_t closing = rest.find('"', 1);
  if (closing == rest.npos) return false;
  value = rest.substr(1, closing - 1);
  text = rest.substr(closing + 1);
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
