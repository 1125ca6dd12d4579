#include "RatioReporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.aggregate_name != "median") continue;
    medians_[run.run_name.str()] = run.real_accumulated_time * 1e9 / static_cast<double>(run.iterations);
  }
  ConsoleReporter::ReportRuns(runs);
}

void RatioReporter::print_ratio(const char* what, const std::string& measured, const std::string& floor,
                                double bound) const {
  const auto a = medians_.find(measured);
  const auto b = medians_.find(floor);
  if (a == medians_.end() || b == medians_.end()) return;
  const double ratio = a->second / b->second;
  std::printf("%-62s %6.2f  (at most %.1f)%s\n", what, ratio, bound, ratio <= bound ? "" : "  MISSED");
}
