#pragma once

#include <chrono>

#include "vlnOstream.h"

// How far the work has come, for a person at a terminal: a row of percentages that grows, with a dot for every second
// in which nobody says how far it is. Work that is done in a moment shows nothing. Not for several threads.
class velProgress {
 public:
  // The stream must outlive it.
  explicit velProgress(vlnOstream& stream) : stream_(stream) {}

  void show(int percent);
  // For work that goes on without telling how far it is; to be called as often as it pleases.
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
