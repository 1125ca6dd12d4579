#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "vlnPathList.h"
#include "vlnSearchPath.h"

// The time for lists of directories must grow linearly with their length.

namespace {

std::string numbered(const std::string& prefix, long count) {
  std::string list;
  for (long i = 0; i < count; ++i) list += prefix + std::to_string(i) + ";";
  return list;
}

void splitting_a_search_path(benchmark::State& state) {
  const apString list(numbered("/some/directory/", state.range(0)).c_str());
  for (auto _ : state) {
    vlnSearchPath path(list);
    benchmark::DoNotOptimize(path);
  }
}

void filling_a_path_list(benchmark::State& state) {
  const std::string list = numbered("/some/directory/", state.range(0));
  for (auto _ : state) {
    vlnPathList path(list.c_str());
    benchmark::DoNotOptimize(path);
  }
}

void expanding_a_list(benchmark::State& state) {
  const std::string list = numbered("<exe_dir>/", state.range(0));
  for (auto _ : state) std::free(vlnPathList::expand_list(list.c_str(), "/opt/suite/sys/exec"));
}

}  // namespace

BENCHMARK(splitting_a_search_path)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(filling_a_path_list)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);
BENCHMARK(expanding_a_list)->Arg(10000)->Arg(40000)->Unit(benchmark::kMillisecond);
