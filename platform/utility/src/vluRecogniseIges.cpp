#include <algorithm>
#include <string_view>

#include "apNumberText.h"
#include "vluRecognisers.h"
#include "vluTextScan.h"

namespace {

constexpr std::size_t line_width = 80;
constexpr std::size_t mark_width = 8;  // a letter and a number of seven places

// The section letter and the sequence number at the end of a line, if present.
struct Mark {
  char section = 0;
  long long number = 0;
};

Mark mark_of(std::string_view line) {
  while (!line.empty() && vlu_is_blank(line.back())) line.remove_suffix(1);
  if (line.size() < mark_width) return {};
  const std::string_view mark = line.substr(line.size() - mark_width);
  constexpr std::string_view sections = "SGDPTBC";
  long long number;
  if (sections.find(mark[0]) == sections.npos || !ap_parse_int(mark.substr(1), number) || number < 1) return {};
  return {mark[0], number};
}

// Removes one line; in a file without line breaks the lines follow each other directly.
std::string_view take_record(std::string_view& text) {
  const std::size_t line_break = text.find_first_of("\r\n");
  if (line_break != text.npos && line_break <= 2 * line_width) return vlu_take_line(text);
  const std::string_view record = text.substr(0, line_width);
  text.remove_prefix(record.size());
  return record;
}

}  // namespace

vluSureness vlu_sure_of_iges(const vluFileSample& sample) {
  std::string_view text = sample.text();
  int whole = 0;
  int marked = 0;
  Mark before;
  for (int line = 0; line < 8 && !text.empty(); ++line) {
    const std::string_view record = take_record(text);
    const Mark mark = mark_of(record);
    if (mark.section == 0) continue;
    const bool in_order = mark.section == before.section ? mark.number == before.number + 1 : mark.number == 1;
    if (!in_order) continue;
    ++marked;
    std::string_view end = record.substr(std::min(line_width, record.size()));
    vlu_skip_blanks(end);
    if (record.size() >= line_width && end.empty() && record[line_width - mark_width] == mark.section) ++whole;
    before = mark;
  }
  if (whole >= 2) return vluUNMISTAKABLE;
  if (whole == 1) return vluKEYWORD;
  return marked > 0 ? vluRESEMBLES : vluNO_MARK;
}
