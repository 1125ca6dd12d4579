#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

// Shows the benchmarks as usual and keeps their medians, so that ratios between them can be printed at the end.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  // One line: what was compared, the ratio of the medians, and the bound; 0 stands for none.
  void print_ratio(const char* what, const std::string& measured, const std::string& floor, double bound) const;

  // One line: the most memory that any run of a benchmark took.
  void print_peak(const char* what, const std::string& measured, double bound_in_mebibytes) const;

  // The median of a benchmark in nanoseconds; 0 when it did not run.
  double median(const std::string& measured) const;

 private:
  std::map<std::string, double> medians_;
  std::map<std::string, double> peaks_;
};

// Runs the registered benchmarks. Every ratio compares medians of runs that take turns, so that a slow moment of the
// machine falls on both sides. False when the words on the command line are not understood.
bool run_benchmarks(int argc, char** argv, int repetitions, RatioReporter& reporter);
