#include <cstdio>

#include "RatioReporter.h"

int main(int argc, char** argv) {
  RatioReporter reporter;
  if (!run_benchmarks(argc, argv, 9, reporter)) return 1;

  std::puts("\nRatios of medians");
  reporter.print_ratio("cached start, 1,000 translators / plain reading and listing", "cached_start/1000",
                       "plain_reading_and_listing/1000", 4);
  reporter.print_ratio("cached start, 10,000 translators / 1,000", "first_cached_start/10000/manual_time",
                       "first_cached_start/1000/manual_time", 12);
  reporter.print_ratio("discovery without cache / opening and asking in a bare loop", "discovery/manual_time",
                       "bare_opening_and_asking/manual_time", 1.3);
  for (const std::string list : {"splitting_a_search_path", "filling_a_path_list", "expanding_a_list"}) {
    reporter.print_ratio((list + ", 40,000 directories / 10,000").c_str(), list + "/40000", list + "/10000", 6);
  }
  reporter.print_ratio("vel --version / empty program with the same libraries", "vel_version/manual_time",
                       "empty_program/manual_time", 3);
  reporter.print_ratio("vel list, warm / empty program with the same libraries", "vel_list_warm/manual_time",
                       "empty_program/manual_time", 6);
  return 0;
}
