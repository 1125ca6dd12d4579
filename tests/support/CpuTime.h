#pragma once

#include <algorithm>
#include <ctime>

// How many seconds of the processor a piece of work takes: the best of three runs.
template <typename Work>
double cpu_seconds(const Work& work) {
  double best = 1e9;
  for (int turn = 0; turn < 3; ++turn) {
    const std::clock_t start = std::clock();
    work();
    best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return best;
}
