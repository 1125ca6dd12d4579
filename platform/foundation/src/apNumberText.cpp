#include "apNumberText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace {

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

bool is_blank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

std::string_view between_blanks(std::string_view text) {
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  return text;
}

// Reads the common numbers fast: few digits and a small power of ten, so that one multiplication or division of two
// exact doubles gives the nearest double. Returns false for all others, which take the slow path.
bool take_short_number(const char* at, const char* end, const char*& stop, double& value) {
  constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                               1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  constexpr std::ptrdiff_t most_digits = 18;
  std::uint64_t digits = 0;
  auto take_digits = [&] {
    const char* const first = at;
    for (; at != end && is_digit(*at); ++at) digits = digits * 10 + static_cast<unsigned char>(*at - '0');
    return at - first;
  };

  const bool negative = at != end && *at == '-';
  if (negative) ++at;
  std::ptrdiff_t count = take_digits();
  std::ptrdiff_t exponent = 0;
  if (at != end && *at == '.') {
    ++at;
    const std::ptrdiff_t behind_point = take_digits();
    count += behind_point;
    exponent = -behind_point;
  }
  if (count == 0 || count > most_digits || digits > std::uint64_t{1} << 53) return false;
  // An exponent of one or two digits; every other form takes the slow path.
  if (at != end && (*at | 0x20) == 'd') return false;
  if (at != end && (*at | 0x20) == 'e') {
    const char* mark = at + 1;
    const bool small = mark != end && *mark == '-';
    if (mark != end && (*mark == '-' || *mark == '+')) ++mark;
    if (mark == end || !is_digit(*mark)) return false;
    std::ptrdiff_t marked = *mark++ - '0';
    if (mark != end && is_digit(*mark)) marked = marked * 10 + (*mark++ - '0');
    if (mark != end && is_digit(*mark)) return false;
    exponent += small ? -marked : marked;
    at = mark;
  }
  if (exponent < -22 || exponent > 22) return false;
  const auto size = static_cast<double>(digits);
  const double number = exponent < 0 ? size / powers[-exponent] : size * powers[exponent];
  value = negative ? -number : number;
  stop = at;
  return true;
}

// The value of a number outside the range of doubles: infinity or zero, depending on the position of its first
// significant digit and on its exponent.
double beyond_range(std::string_view number) {
  const bool negative = number.front() == '-';
  if (negative) number.remove_prefix(1);
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = std::min(digits.find_first_not_of("0."), digits.size());

  long long exponent = 0;
  if (mark < number.size()) {
    std::string_view text = number.substr(mark + 1);
    const bool small = text.starts_with('-');
    if (!ap_take_int(text, exponent)) exponent = small ? -1'000'000'000'000 : 1'000'000'000'000;
  }
  const auto place = static_cast<long long>(point) - static_cast<long long>(first);
  const bool huge = exponent > -place;
  const double size = huge ? std::numeric_limits<double>::infinity() : 0.0;
  return negative ? -size : size;
}

// Reads a number whose exponent begins with "d" at `mark`, with an "e" instead.
bool take_with_d_exponent(std::string_view& text, std::size_t mark, double& value) {
  std::size_t end = mark + 1;
  if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
  if (end == text.size() || !is_digit(text[end])) return false;
  while (end < text.size() && is_digit(text[end])) ++end;

  std::string number(text.substr(0, end));
  number[mark] = 'e';
  std::string_view rest = number;
  if (!ap_take_double(rest, value)) return false;
  text.remove_prefix(end);
  return true;
}

}  // namespace

bool ap_take_double(std::string_view& text, double& value) {
  const char* start = text.data();
  const char* const end = start + text.size();
  if (start != end && *start == '+') {
    ++start;
    if (start != end && *start == '-') return false;
  }
  const char* short_end = nullptr;
  if (take_short_number(start, end, short_end, value)) {
    text = {short_end, static_cast<std::size_t>(end - short_end)};
    return true;
  }
  double number;
  const auto [stop, error] = std::from_chars(start, end, number);
  if (error == std::errc::invalid_argument) return false;

  const std::string_view taken(start, static_cast<std::size_t>(stop - start));
  if (stop != end && (*stop == 'd' || *stop == 'D') && (is_digit(stop[-1]) || stop[-1] == '.') &&
      taken.find_first_of("eE") == taken.npos) {
    std::string_view rest(start, static_cast<std::size_t>(end - start));
    if (take_with_d_exponent(rest, taken.size(), value)) {
      text = rest;
      return true;
    }
  }
  value = error == std::errc::result_out_of_range ? beyond_range(taken) : number;
  text = {stop, static_cast<std::size_t>(end - stop)};
  return true;
}

bool ap_take_int(std::string_view& text, long long& value) {
  const char* start = text.data();
  const char* const end = start + text.size();
  if (start != end && *start == '+') {
    ++start;
    if (start != end && *start == '-') return false;
  }
  const auto [stop, error] = std::from_chars(start, end, value);
  if (error != std::errc()) return false;
  text = {stop, static_cast<std::size_t>(end - stop)};
  return true;
}

bool ap_parse_double(std::string_view text, double& value) {
  text = between_blanks(text);
  double number;
  if (!ap_take_double(text, number) || !text.empty()) return false;
  value = number;
  return true;
}

bool ap_parse_int(std::string_view text, long long& value) {
  text = between_blanks(text);
  long long number;
  if (!ap_take_int(text, number) || !text.empty()) return false;
  value = number;
  return true;
}

char* ap_write_number(char* to, double value) {
  return std::to_chars(to, to + ap_number_room, value).ptr;
}

char* ap_write_number(char* to, float value) {
  return std::to_chars(to, to + ap_number_room, value).ptr;
}

char* ap_write_number(char* to, long long value) {
  return std::to_chars(to, to + ap_number_room, value).ptr;
}
