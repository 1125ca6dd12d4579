#include "vltNames.h"

#include "vltWords.h"

namespace {

bool is_control(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

}  // namespace

std::string vlt_quoted(std::string_view text, std::size_t most) {
  std::string result = "\"";
  for (char c : text.substr(0, most)) result += is_control(c) || static_cast<unsigned char>(c) >= 0x80 ? '?' : c;
  return result + (text.size() > most ? "...\"" : "\"");
}

std::string_view vlt_trimmed(std::string_view text) {
  auto drop = [](char c) { return c == ' ' || is_control(c); };
  while (!text.empty() && drop(text.front())) text.remove_prefix(1);
  while (!text.empty() && drop(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view vlt_name_on_line(std::string_view text) {
  for (std::size_t at = text.find('#'); at != text.npos; at = text.find('#', at + 1)) {
    const bool before = at == 0 || vlt_is_blank(text[at - 1]);
    const bool behind = at + 1 == text.size() || vlt_is_blank(text[at + 1]);
    if (before && behind) return vlt_trimmed(text.substr(0, at));
  }
  return vlt_trimmed(text);
}

std::string vlt_one_line(const utString& name) {
  std::string result(vlt_trimmed(name.view()));
  for (char& c : result) {
    if (is_control(c)) c = ' ';
  }
  return result;
}

std::string vltUniqueNames::unique(std::string name) {
  if (used_.insert(name).second) return name;
  // Counting on from the last number of this name: a thousand parts of one name cost a thousand steps, not a million.
  unsigned& number = last_number_.try_emplace(name, 1).first->second;
  std::string numbered;
  do {
    numbered = name + "_" + std::to_string(++number);
  } while (!used_.insert(numbered).second);
  return numbered;
}
