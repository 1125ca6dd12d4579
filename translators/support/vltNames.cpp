#include "vltNames.h"

#include <algorithm>

#include "vltUtf8.h"
#include "vltWords.h"

namespace {

bool is_control(char32_t code) {
  return code < 0x20 || (code >= 0x7f && code < 0xa0);
}

bool is_control(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

// The start of a comment; `npos` when there is none.
std::size_t comment_in(std::string_view text) {
  std::size_t at = text.find('#');
  for (; at != text.npos; at = text.find('#', at + 1)) {
    const bool before = at == 0 || vlt_is_blank(text[at - 1]);
    const bool behind = at + 1 == text.size() || vlt_is_blank(text[at + 1]);
    if (before && behind) break;
  }
  return at;
}

}  // namespace

std::string vlt_quoted(std::string_view text, std::size_t most) {
  std::string result = "\"";
  for (std::size_t shown = 0; shown < most && !text.empty(); ++shown) {
    const std::size_t size = vlt_utf8_size(text);
    const bool can_be_shown = size > 0 && !is_control(vlt_utf8_code(text, size));
    result += can_be_shown ? text.substr(0, size) : "?";
    text.remove_prefix(std::max<std::size_t>(size, 1));
  }
  return result + (text.empty() ? "\"" : "...\"");
}

std::string_view vlt_trimmed(std::string_view text) {
  auto drop = [](char c) { return c == ' ' || is_control(c); };
  while (!text.empty() && drop(text.front())) text.remove_prefix(1);
  while (!text.empty() && drop(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view vlt_before_comment(std::string_view text) {
  return vlt_trimmed(text.substr(0, comment_in(text)));
}

std::string vlt_name_on_line(std::string_view text) {
  return vlt_utf8_or_latin1(vlt_before_comment(text));
}

std::string vlt_one_line(const utString& name) {
  std::string result(vlt_trimmed(name.view()));
  for (char& c : result) {
    if (is_control(c)) c = ' ';
  }
  return result;
}

std::string vlt_name_for_line(const utString& name) {
  std::string result = vlt_one_line(name);
  for (std::size_t at; (at = comment_in(result)) != result.npos;) result[at] = '_';
  return result;
}

std::string vltUniqueNames::unique(std::string name) {
  if (used_.insert(name).second) return name;
  // Continues from the last number of this name, so many parts with one name take linear, not quadratic, time.
  unsigned& number = last_number_.try_emplace(name, 1).first->second;
  std::string numbered;
  do {
    numbered = name + "_" + std::to_string(++number);
  } while (!used_.insert(numbered).second);
  return numbered;
}
