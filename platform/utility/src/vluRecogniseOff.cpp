#include "apNumberText.h"
#include "vluRecognisers.h"
#include "vluTextScan.h"

namespace {

// Takes the optional prefixes and the keyword itself away.
bool take_keyword(std::string_view& text) {
  for (std::string_view prefix : {"ST", "C", "N", "4", "n"}) {
    if (text.starts_with(prefix)) text.remove_prefix(prefix.size());
  }
  if (!text.starts_with("OFF")) return false;
  text.remove_prefix(3);
  const char next = text.empty() ? '\n' : text.front();
  return vlu_is_blank(next) || next == '\n' || next == '#' || (next >= '0' && next <= '9');
}

}  // namespace

vluSureness vlu_sure_of_off(const vluFileSample& sample) {
  // The binary form has null bytes behind its first line, so the head is not asked to be text.
  std::string_view text = sample.head();
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  vlu_skip_comments(text);
  if (!take_keyword(text)) return vluNO_MARK;
  vlu_skip_comments(text);
  if (text.empty()) return vluRESEMBLES;
  if (text.starts_with("BINARY")) return vluKEYWORD;
  long long count;
  return ap_take_int(text, count) ? vluKEYWORD : vluNO_MARK;
}
