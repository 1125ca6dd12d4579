#include "ProgramRun.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

ProgramRun run_program(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  int status = -1;
  struct rusage usage {};
  if (posix_spawnp(&child, arguments[0], &quiet, nullptr, arguments.data(), environ) == 0) {
    wait4(child, &status, 0, &usage);
  }
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  posix_spawn_file_actions_destroy(&quiet);
  return {status == 0, taken.count(), static_cast<double>(usage.ru_maxrss) / 1024};
}

void measure_program(benchmark::State& state, const std::vector<std::string>& words) {
  double peak = 0;
  for (auto _ : state) {
    const ProgramRun run = run_program(words);
    if (!run.done) {
      state.SkipWithError("the program failed");
      break;
    }
    state.SetIterationTime(run.seconds);
    peak = std::max(peak, run.peak_mebibytes);
  }
  state.counters["peak_MiB"] = peak;
}
