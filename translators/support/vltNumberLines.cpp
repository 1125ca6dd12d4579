#include "vltNumberLines.h"

#include <cmath>

#include "apNumberText.h"

bool vltNumberLines::next_line() {
  bool leaving = in_line_;
  in_line_ = true;
  while (at_ != end_) {
    if (leaving) {
      while (at_ != end_ && !ends_line(*at_)) ++at_;
      if (at_ == end_) return false;
    }
    leaving = false;
    if (ends_line(*at_)) {
      const bool pair = *at_ == '\r' && at_ + 1 != end_ && at_[1] == '\n';
      at_ += pair ? 2 : 1;
      ++line_;
    } else if (vlt_is_blank(*at_)) {
      ++at_;
    } else if (*at_ == '#') {
      leaving = true;
    } else {
      return true;
    }
  }
  return false;
}

bool vltNumberLines::take(double& value) {
  if (at_line_end()) return false;
  std::string_view text = rest();
  double number = 0;
  if (!ap_take_double(text, number) || !ends_word(text.data())) return false;
  value = number;
  at_ = text.data();
  return true;
}

bool vltNumberLines::take_odd_whole(long long& value) {
  constexpr double most = 9e15;  // every integer up to this one is exact as a double
  const char* const before = at_;
  double number = 0;
  if (take(number) && std::fabs(number) <= most && number == std::floor(number)) {
    value = static_cast<long long>(number);
    return true;
  }
  at_ = before;
  return false;
}

std::string_view vltNumberLines::take_word() {
  if (at_line_end()) return {};
  const char* const first = at_;
  while (!ends_word(at_)) ++at_;
  return {first, static_cast<std::size_t>(at_ - first)};
}
