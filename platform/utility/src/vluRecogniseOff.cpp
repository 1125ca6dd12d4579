#include "apNumberText.h"
#include "vluRecognisers.h"
#include "vluTextScan.h"

namespace {

// Removes the optional prefixes and the keyword.
bool take_keyword(std::string_view& text) {
  // Some writers put "N" before "C".
  for (std::string_view prefix : {"ST", "N", "C", "N", "4", "n"}) {
    if (text.starts_with(prefix)) text.remove_prefix(prefix.size());
  }
  if (!text.starts_with("OFF")) return false;
  text.remove_prefix(3);
  const char next = text.empty() ? '\n' : text.front();
  return vlu_is_blank(next) || next == '\n' || next == '#' || (next >= '0' && next <= '9');
}

// The number of numbers on a line, ignoring a comment; 0 if it contains anything else. `first_whole` is the first
// number, or -1 if that is not an integer.
std::size_t numbers_on_line(std::string_view line, long long& first_whole) {
  line = line.substr(0, line.find('#'));
  std::size_t count = 0;
  for (std::string_view word = vlu_take_word(line); !word.empty(); word = vlu_take_word(line), ++count) {
    double value;
    if (!ap_parse_double(word, value)) return 0;
    if (count == 0 && !ap_parse_int(word, first_whole)) first_whole = -1;
  }
  return count;
}

// For files without the keyword. Counts, vertices and faces must be consistent within the head, and a file that ends
// within the head must contain all of them.
bool agrees_with_itself(const vluFileSample& sample) {
  std::string_view text = sample.text();
  std::string_view counts = vlu_take_line(text);
  long long vertices = 0, faces = 0, edges = 0;
  if (!ap_parse_int(vlu_take_word(counts), vertices) || !ap_parse_int(vlu_take_word(counts), faces) ||
      !ap_parse_int(vlu_take_word(counts), edges) || !vlu_take_word(counts).empty()) {
    return false;
  }
  if (vertices < 3 || faces < 1 || edges < 0) return false;
  // The last line of a truncated head may be incomplete.
  if (!sample.head_is_all()) text = text.substr(0, text.find_last_of("\r\n"));
  long long seen = 0;
  for (vlu_skip_comments(text); !text.empty() && seen < vertices + faces; vlu_skip_comments(text), ++seen) {
    long long corners = 0;
    const std::size_t count = numbers_on_line(vlu_take_line(text), corners);
    const bool fits = seen < vertices ? count >= 3 : corners >= 0 && count > static_cast<std::size_t>(corners);
    if (!fits) return false;
  }
  return seen == vertices + faces || (!sample.head_is_all() && seen > 3);
}

}  // namespace

vluSureness vlu_sure_of_off(const vluFileSample& sample) {
  // The binary form has null bytes after its first line, so the head need not be text.
  std::string_view text = sample.head();
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  vlu_skip_comments(text);
  if (!take_keyword(text)) return agrees_with_itself(sample) ? vluCONSISTENT : vluNO_MARK;
  vlu_skip_comments(text);
  if (text.empty()) return vluRESEMBLES;
  if (text.starts_with("BINARY")) return vluKEYWORD;
  long long count;
  return ap_take_int(text, count) ? vluKEYWORD : vluNO_MARK;
}
