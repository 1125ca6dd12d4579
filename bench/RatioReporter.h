#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Shows the benchmarks as usual and keeps their medians, so that ratios between them can be printed at the end.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  // One line: what was compared, the ratio of the medians, and the bound.
  void print_ratio(const char* what, const std::string& measured, const std::string& floor, double bound) const;

 private:
  std::map<std::string, double> medians_;  // nanoseconds
};
