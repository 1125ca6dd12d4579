#include "RatioReporter.h"

#include <algorithm>
#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    // The name without the suffixes for the way of measuring: "name/manual_time/...".
    const std::string& name = run.run_name.function_name;
    if (const auto peak = run.counters.find("peak_MiB"); peak != run.counters.end()) {
      peaks_[name] = std::max(peaks_[name], static_cast<double>(peak->second));
    }
    if (run.aggregate_name != "median") continue;
    medians_[run.run_name.str()] = run.real_accumulated_time * 1e9 / static_cast<double>(run.iterations);
  }
  ConsoleReporter::ReportRuns(runs);
}

double RatioReporter::median(const std::string& measured) const {
  const auto found = medians_.find(measured);
  return found == medians_.end() ? 0 : found->second;
}

void RatioReporter::print_ratio(const char* what, const std::string& measured, const std::string& floor,
                                double bound) const {
  if (median(measured) == 0 || median(floor) == 0) return;
  const double ratio = median(measured) / median(floor);
  if (bound == 0) {
    std::printf("%-70s %6.2f\n", what, ratio);
    return;
  }
  std::printf("%-70s %6.2f  (at most %.1f)%s\n", what, ratio, bound, ratio <= bound ? "" : "  MISSED");
}

void RatioReporter::print_peak(const char* what, const std::string& measured, double bound_in_mebibytes) const {
  const auto peak = peaks_.find(measured);
  if (peak == peaks_.end()) return;
  std::printf("%-70s %6.1f  (at most %.0f)%s\n", what, peak->second, bound_in_mebibytes,
              peak->second <= bound_in_mebibytes ? "" : "  MISSED");
}

bool run_benchmarks(int argc, char** argv, int repetitions, RatioReporter& reporter) {
  std::vector<std::string> words(argv, argv + argc);
  words.insert(words.begin() + 1,
               {"--benchmark_repetitions=" + std::to_string(repetitions), "--benchmark_enable_random_interleaving=true",
                "--benchmark_report_aggregates_only=true", "--benchmark_min_time=0.05"});
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return false;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return true;
}
