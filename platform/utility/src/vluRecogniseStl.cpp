#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "vluRecognisers.h"
#include "vluTextScan.h"

static_assert(std::endian::native == std::endian::little, "binary STL is read as it lies in the file");

namespace {

constexpr std::size_t header_size = 80;
constexpr std::size_t prologue_size = header_size + 4;
constexpr std::size_t triangle_size = 50;
constexpr std::uint32_t most_triangles = std::uint32_t{1} << 28;  // if the size of the file does not confirm them

bool is_word(std::string_view word, std::string_view lower) {
  if (word.size() != lower.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if ((word[i] | 0x20) != lower[i]) return false;
  }
  return true;
}

bool is_start_of_word(std::string_view word, std::string_view lower) {
  return word.size() <= lower.size() && is_word(word, lower.substr(0, word.size()));
}

vluSureness sure_of_text(const vluFileSample& sample) {
  std::string_view text = sample.text();
  vlu_skip_comments(text);
  std::string_view line = vlu_take_line(text);
  if (!is_word(vlu_take_word(line), "solid")) return vluNO_MARK;

  // The name may have several lines, so search for the first statement.
  bool cut_word = false;
  int lines = 0;
  for (vlu_skip_space(text); !text.empty(); vlu_skip_space(text), ++lines) {
    line = vlu_take_line(text);
    const std::string_view word = vlu_take_word(line);
    if (is_word(word, "facet") || is_word(word, "endsolid")) return vluKEYWORD;
    cut_word = sample.head_is_all() && (is_start_of_word(word, "facet") || is_start_of_word(word, "endsolid"));
  }
  // A file that is truncated before the end of its first statement.
  return sample.head_is_all() && (lines == 0 || (lines == 1 && cut_word)) ? vluFRAGMENT : vluNO_MARK;
}

// Rates the triangle at the start of `bytes`. 2: its normal matches its corners. 1: the normal is omitted. 0: a number
// is outside the range of models, the corners have no area, or the normal does not match.
int evidence_of_triangle(std::string_view bytes) {
  std::array<float, 12> numbers;
  std::memcpy(numbers.data(), bytes.data(), sizeof numbers);
  for (float number : numbers) {
    const float size = std::fabs(number);
    if (!(size < 1e12f) || (size != 0 && size < 1e-30f)) return 0;
  }
  std::array<double, 3> u;
  std::array<double, 3> v;
  for (std::size_t i = 0; i < 3; ++i) {
    u[i] = double{numbers[6 + i]} - numbers[3 + i];
    v[i] = double{numbers[9 + i]} - numbers[3 + i];
  }
  const std::array<double, 3> cross{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
  const double area = std::hypot(cross[0], cross[1], cross[2]);
  const double length = std::hypot(numbers[0], numbers[1], numbers[2]);
  if (area == 0) return 0;
  if (length == 0) return 1;
  const double cosine = (numbers[0] * cross[0] + numbers[1] * cross[1] + numbers[2] * cross[2]) / (area * length);
  return std::fabs(cosine) > 0.9 ? 2 : 0;
}

// True if at least half of the triangles in the head are plausible.
bool holds_triangles(std::string_view head, std::uint64_t count) {
  std::uint64_t good = 0;
  std::uint64_t seen = 0;
  int evidence = 0;
  for (std::size_t at = prologue_size; seen < count && at + triangle_size <= head.size(); at += triangle_size, ++seen) {
    const int found = evidence_of_triangle(head.substr(at));
    evidence += found;
    if (found > 0) ++good;
  }
  return evidence >= 2 && good * 2 >= seen;
}

bool names_stl(std::string_view header) {
  return header.starts_with("solid") || header.find("STL") != header.npos || header.find("stl") != header.npos;
}

vluSureness sure_of_binary(const vluFileSample& sample) {
  const std::string_view head = sample.head();
  if (head.size() < prologue_size) return vluNO_MARK;
  std::uint32_t count;
  std::memcpy(&count, head.data() + header_size, sizeof count);
  const std::uint64_t expected = prologue_size + std::uint64_t{triangle_size} * count;

  // The size alone is weak evidence: any file of 84 bytes that ends in zeros has it.
  if (count == 0) return sample.size() == expected ? vluRESEMBLES : vluNO_MARK;
  if (sample.size() == expected) return vluEXACT_SIZE;
  if (count > most_triangles) return vluNO_MARK;
  if (holds_triangles(head, count)) return vluCONSISTENT;

  // Truncated within the first triangle.
  const bool text_behind = !sample.text().empty();
  if (sample.size() < prologue_size + triangle_size && !text_behind && names_stl(head.substr(0, header_size))) {
    return vluFRAGMENT;
  }
  return vluNO_MARK;
}

}  // namespace

vluSureness vlu_sure_of_stl(const vluFileSample& sample) {
  return std::max(sure_of_text(sample), sure_of_binary(sample));
}
