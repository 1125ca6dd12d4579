#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Prints the benchmarks as usual and stores their medians, so that ratios between them can be printed at the end.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  // Prints one line: `what` was compared, the ratio of the medians, and the bound; 0 means no bound.
  void print_ratio(const char* what, const std::string& measured, const std::string& floor, double bound) const;

  // Prints one line: the maximum memory over all runs of a benchmark.
  void print_peak(const char* what, const std::string& measured, double bound_in_mebibytes) const;

  // The median of a benchmark in nanoseconds; 0 when it did not run.
  double median(const std::string& measured) const;

 private:
  std::map<std::string, double> medians_;
  std::map<std::string, double> peaks_;
};

// Runs the registered benchmarks. The compared benchmarks run alternately, so that a slow period of the machine affects
// both. Returns false for invalid arguments.
bool run_benchmarks(int argc, char** argv, int repetitions, RatioReporter& reporter);
