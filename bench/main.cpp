#include <cstdio>
#include <string>
#include <vector>

#include "RatioReporter.h"

// Every ratio compares medians of runs that take turns, so that a slow moment of the machine falls on both sides.
int main(int argc, char** argv) {
  std::vector<std::string> words(argv, argv + argc);
  words.insert(words.begin() + 1, {"--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
                                   "--benchmark_report_aggregates_only=true", "--benchmark_min_time=0.05"});
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 1;

  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);

  std::puts("\nRatios of medians");
  reporter.print_ratio("cached start, 1,000 translators / plain reading and listing", "cached_start/1000",
                       "plain_reading_and_listing/1000", 4);
  reporter.print_ratio("cached start, 10,000 translators / 1,000", "first_cached_start/10000/manual_time",
                       "first_cached_start/1000/manual_time", 12);
  reporter.print_ratio("discovery without cache / opening and asking in a bare loop", "discovery/manual_time",
                       "bare_opening_and_asking/manual_time", 1.3);
  reporter.print_ratio("vel --version / empty program with the same libraries", "vel_version/manual_time",
                       "empty_program/manual_time", 3);
  reporter.print_ratio("vel list, warm / empty program with the same libraries", "vel_list_warm/manual_time",
                       "empty_program/manual_time", 6);
  return 0;
}
