#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "TemporaryDirectory.h"

namespace {

// Runs a program to its end with its output thrown away; the seconds that it took, or less than 0 when it failed.
double run(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  int status = -1;
  if (posix_spawn(&child, arguments[0], &quiet, nullptr, arguments.data(), environ) == 0) waitpid(child, &status, 0);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  posix_spawn_file_actions_destroy(&quiet);
  return status == 0 ? taken.count() : -1;
}

void measure(benchmark::State& state, const std::vector<std::string>& words) {
  for (auto _ : state) {
    const double seconds = run(words);
    if (seconds < 0) {
      state.SkipWithError("the program failed");
      break;
    }
    state.SetIterationTime(seconds);
  }
}

void empty_program(benchmark::State& state) {
  measure(state, {VEL_EMPTY_PROGRAM});
}

void vel_version(benchmark::State& state) {
  measure(state, {VEL_PROGRAM, "--version"});
}

void vel_list_warm(benchmark::State& state) {
  static const TemporaryDirectory home;
  setenv("QRM_HOME", home.path().c_str(), 1);
  run({VEL_PROGRAM, "cache", "refresh"});
  measure(state, {VEL_PROGRAM, "list"});
}

}  // namespace

BENCHMARK(empty_program)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(vel_version)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(vel_list_warm)->UseManualTime()->Unit(benchmark::kMillisecond);
