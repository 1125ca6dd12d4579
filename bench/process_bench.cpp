#include <cstdlib>

#include "ProgramRun.h"
#include "TemporaryDirectory.h"

namespace {

void empty_program(benchmark::State& state) {
  measure_program(state, {VEL_EMPTY_PROGRAM});
}

void vel_version(benchmark::State& state) {
  measure_program(state, {VEL_PROGRAM, "--version"});
}

void vel_list_warm(benchmark::State& state) {
  static const TemporaryDirectory home;
  setenv("QRM_HOME", home.path().c_str(), 1);
  run_program({VEL_PROGRAM, "cache", "refresh"});
  measure_program(state, {VEL_PROGRAM, "list"});
}

}  // namespace

BENCHMARK(empty_program)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(vel_version)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(vel_list_warm)->UseManualTime()->Unit(benchmark::kMillisecond);
