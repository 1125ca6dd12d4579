#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

// How a program fared as a whole process, from its start to its end.
struct ProgramRun {
  bool done = false;
  double seconds = 0;
  double peak_mebibytes = 0;  // the most memory that it held at one time
};

// Runs a program with its standard output thrown away.
ProgramRun run_program(std::vector<std::string> words);

// The time of a benchmark is that of the process; the counter `peak_MiB` is its memory.
void measure_program(benchmark::State& state, const std::vector<std::string>& words);
