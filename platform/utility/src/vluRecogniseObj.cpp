#include <algorithm>
#include <array>
#include <string_view>

#include "apNumberText.h"
#include "vluRecognisers.h"
#include "vluTextScan.h"

namespace {

constexpr std::array numbered_statements{std::string_view("v"), std::string_view("vn"), std::string_view("vt"),
                                         std::string_view("vp")};
constexpr std::array indexed_statements{std::string_view("f"), std::string_view("l"), std::string_view("p"),
                                        std::string_view("fo")};
constexpr std::array other_statements{
    std::string_view("g"),         std::string_view("o"),      std::string_view("s"),
    std::string_view("mg"),        std::string_view("usemtl"), std::string_view("mtllib"),
    std::string_view("usemap"),    std::string_view("maplib"), std::string_view("cstype"),
    std::string_view("deg"),       std::string_view("bmat"),   std::string_view("step"),
    std::string_view("curv"),      std::string_view("curv2"),  std::string_view("surf"),
    std::string_view("parm"),      std::string_view("trim"),   std::string_view("hole"),
    std::string_view("scrv"),      std::string_view("sp"),     std::string_view("end"),
    std::string_view("con"),       std::string_view("bevel"),  std::string_view("c_interp"),
    std::string_view("d_interp"),  std::string_view("lod"),    std::string_view("shadow_obj"),
    std::string_view("trace_obj"), std::string_view("ctech"),  std::string_view("stech"),
    std::string_view("call"),      std::string_view("csh"),    std::string_view("t")};

template <std::size_t count>
bool is_one_of(const std::array<std::string_view, count>& words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

// Writers spell numbers differently, so a digit in the right position is enough.
bool starts_as_number(std::string_view word) {
  double number;
  return ap_take_double(word, number);
}

struct Counts {
  int shapes = 0;  // statements with the required numbers
  int links = 0;   // names of material files and materials
  int others = 0;
  int foreign = 0;  // lines that are not statements, except lines with an unknown keyword
};

// A word of letters and a number: many programs add their own statements.
bool looks_like_statement(std::string_view keyword, std::string_view first) {
  auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
  return std::all_of(keyword.begin(), keyword.end(), is_letter) && starts_as_number(first);
}

void count_line(std::string_view line, Counts& counts) {
  const std::string_view keyword = vlu_take_word(line);
  if (keyword.empty() || keyword.starts_with('#')) return;
  const std::string_view first = vlu_take_word(line);
  if (is_one_of(numbered_statements, keyword)) {
    const std::string_view second = vlu_take_word(line);
    const bool numbers = starts_as_number(first) && (second.empty() ? keyword != "v" : starts_as_number(second));
    ++(numbers ? counts.shapes : counts.foreign);
  } else if (is_one_of(indexed_statements, keyword)) {
    ++(starts_as_number(first) ? counts.shapes : counts.foreign);
  } else if (keyword == "mtllib" || keyword == "usemtl") {
    ++counts.links;
  } else if (is_one_of(other_statements, keyword)) {
    ++counts.others;
  } else if (!looks_like_statement(keyword, first)) {
    ++counts.foreign;
  }
}

// Counts the statements of the text. A line that is cut by the sample is skipped; a line continued by a backslash
// counts once.
Counts count_statements(std::string_view text, bool cut_at_front, bool cut_at_end) {
  Counts counts;
  if (cut_at_front) vlu_take_line(text);
  bool continued = false;
  while (!text.empty()) {
    const std::string_view line = vlu_take_line(text);
    const bool cut = cut_at_end && text.empty();
    // The first words of a cut line are complete if the line is long.
    if (!continued && (!cut || line.size() > 256)) count_line(line, counts);
    continued = line.ends_with('\\');
  }
  return counts;
}

vluSureness judge(const Counts& counts) {
  const int known = counts.shapes + counts.links + counts.others;
  if (counts.foreign > known / 4) return vluNO_MARK;
  if (counts.shapes > 0) return vluCONSISTENT;
  return counts.links > 0 ? vluRESEMBLES : vluNO_MARK;
}

}  // namespace

vluSureness vlu_sure_of_obj(const vluFileSample& sample) {
  if (sample.text().empty()) return vluNO_MARK;
  const Counts counts = count_statements(sample.text(), false, !sample.head_is_all());
  const bool only_comments = counts.shapes + counts.links + counts.others + counts.foreign == 0;
  if (!only_comments || sample.head_is_all()) return judge(counts);
  if (sample.tail().find('\0') != std::string_view::npos) return vluNO_MARK;
  return judge(count_statements(sample.tail(), true, false));
}
