#include "velProgress.h"

namespace {

constexpr std::chrono::milliseconds patience(400);
constexpr std::chrono::seconds longest_silence(1);
constexpr int step = 5;
constexpr int row_width = 77;

}  // namespace

void velProgress::show(int percent) {
  if (percent < next_percent_) return;
  const Clock::time_point now = Clock::now();
  // Show nothing for short work, and no 100 when no percentage was shown before it.
  if (now - began_ < patience || (percent == 100 && next_percent_ == 0)) return;
  next_percent_ = percent - percent % step + step;
  last_sign_ = now;

  const int length = percent == 100 ? 5 : 4;
  // After a percentage that exactly fills the row, the stream would print the next message on the same row.
  if (column_ + length == row_width) end();
  stream_.print_percent(percent);
  column_ = column_ + length > row_width ? length : column_ + length;
}

void velProgress::show_life() {
  const Clock::time_point now = Clock::now();
  if (now - last_sign_ < longest_silence) return;
  last_sign_ = now;
  stream_.print_dot();
  column_ = (column_ + 1) % row_width;
}

void velProgress::end() {
  // An empty message only ends the row.
  if (column_ > 0) stream_.print("");
  column_ = 0;
}
