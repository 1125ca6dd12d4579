#pragma once

#include <chrono>

#include "vlnOstream.h"

// Shows progress on a terminal: a growing row of percentages, with a dot for every second without a new percentage.
// Short work shows nothing. Not thread-safe.
class velProgress {
 public:
  // The stream must outlive it.
  explicit velProgress(vlnOstream& stream) : stream_(stream) {}

  void show(int percent);
  // Shows that the work continues when its progress is unknown. May be called at any rate.
  void show_life();
  // Ends the row, if one has begun.
  void end();

 private:
  using Clock = std::chrono::steady_clock;

  vlnOstream& stream_;
  Clock::time_point began_ = Clock::now();
  Clock::time_point last_sign_ = began_;
  int next_percent_ = 0;
  int column_ = 0;
};
