#include "objNumbers.h"

#include <charconv>
#include <string>

#include "apNumberText.h"
#include "vltNames.h"
#include "vltWords.h"

namespace {

// Reads the number at the start of a word that has other characters after it.
bool take_odd_number(std::string_view& rest, double& number, std::size_t line, vltOnce& findings,
                     std::string_view& wrong) {
  const std::string_view word = vlt_take_word(rest);
  std::string_view behind = word;
  // Some programs write "1.#QNAN" for NaN, and a decimal comma gives "0,5".
  if (!ap_take_double(behind, number) || behind.starts_with('#') || behind.starts_with(',')) {
    wrong = word;
    return false;
  }
  findings.count(velabsWARNING,
                 "odd notation of numbers, the first " + vlt_quoted(word) + " taken as " +
                     std::string(word.substr(0, word.size() - behind.size())),
                 line);
  return true;
}

}  // namespace

bool obj_take_numbers(std::string_view rest, std::span<double> numbers, std::size_t& count, std::size_t line,
                      vltOnce& findings, std::string_view& wrong) {
  count = 0;
  const char* at = rest.data();
  const char* const end = at + rest.size();
  while (true) {
    while (at != end && vlt_is_blank(*at)) ++at;
    if (at == end || *at == '#') return true;
    std::string_view behind(at, static_cast<std::size_t>(end - at));
    double number = 0;
    if (!ap_take_double(behind, number) || (!behind.empty() && !vlt_is_blank(behind.front()))) {
      behind = {at, static_cast<std::size_t>(end - at)};
      if (!take_odd_number(behind, number, line, findings, wrong)) return false;
    }
    if (count == numbers.size()) {
      findings.count(velabsWARNING, "further numbers of a vertex are passed over", line);
      return true;
    }
    numbers[count++] = number;
    at = behind.data();
  }
}

bool obj_take_index(std::string_view& text, long long& index) {
  const std::size_t sign = text.starts_with('+') ? 1 : 0;
  const auto [end, error] = std::from_chars(text.data() + sign, text.data() + text.size(), index);
  if (error != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return true;
}
