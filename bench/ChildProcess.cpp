#include "ChildProcess.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

double seconds_in_child(const std::function<bool()>& work) {
  int ends[2];
  if (pipe(ends) != 0) return -1;
  const pid_t child = fork();
  if (child == 0) {
    const auto start = std::chrono::steady_clock::now();
    const bool done = work();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const double seconds = done ? taken.count() : -1;
    _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
  }
  close(ends[1]);
  double seconds = -1;
  if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds) seconds = -1;
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return seconds;
}
