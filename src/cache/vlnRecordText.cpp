#include "vlnRecordText.h"

#include <charconv>

namespace {

std::string_view without_separators(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" ,");
  return first == text.npos ? std::string_view() : text.substr(first);
}

}  // namespace

bool vlnBraceScanner::scan(std::string_view text) {
  for (; position_ < text.size() && !stray_; ++position_) {
    if (text[position_] == '{') {
      if (++depth_ == 1) begin_ = position_ + 1;
    } else if (text[position_] == '}') {
      if (depth_ == 0) {
        stray_ = true;
      } else if (--depth_ == 0) {
        end_ = position_;
        return true;
      }
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
