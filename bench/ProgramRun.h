#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

// The result of one run of a program: time and memory of the whole process.
struct ProgramRun {
  bool done = false;
  double seconds = 0;
  double peak_mebibytes = 0;  // the maximum memory in use
};

// Runs a program and discards its standard output.
ProgramRun run_program(std::vector<std::string> words);

// Measures a program: the benchmark's time is that of the process, the counter `peak_MiB` its maximum memory.
void measure_program(benchmark::State& state, const std::vector<std::string>& words);
