#include "objNumbers.h"

#include <charconv>
#include <string>

#include "apNumberText.h"
#include "vltNames.h"
#include "vltWords.h"

bool obj_take_numbers(std::string_view rest, std::span<double> numbers, std::size_t& count, std::size_t line,
                      vltOnce& findings, std::string_view& wrong) {
  count = 0;
  for (std::string_view word = vlt_take_word(rest); !word.empty() && word[0] != '#'; word = vlt_take_word(rest)) {
    std::string_view behind = word;
    double number = 0;
    // "1.#QNAN" is how some programs write what is no number.
    if (!ap_take_double(behind, number) || behind.starts_with('#')) {
      wrong = word;
      return false;
    }
    if (!behind.empty()) {
      const std::string_view taken = word.substr(0, word.size() - behind.size());
      findings.count(velabsWARNING,
                     "odd notation of numbers, the first " + vlt_quoted(word) + " taken as " + std::string(taken),
                     line);
    }
    if (count == numbers.size()) {
      findings.count(velabsWARNING, "further numbers of a vertex are passed over", line);
      return true;
    }
    numbers[count++] = number;
  }
  return true;
}

bool obj_take_index(std::string_view& text, long long& index) {
  const std::size_t sign = text.starts_with('+') ? 1 : 0;
  const auto [end, error] = std::from_chars(text.data() + sign, text.data() + text.size(), index);
  if (error != std::errc()) return false;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return true;
}
