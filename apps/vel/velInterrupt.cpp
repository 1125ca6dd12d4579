#include "velInterrupt.h"

#include <atomic>
#include <csignal>

namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "the handler may only touch what needs no lock");

void on_signal(int) {
  interrupted.store(true, std::memory_order_relaxed);
  // The next signal of either kind ends the program.
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);
}

void catch_signal(int number) {
  struct sigaction before = {};
  if (sigaction(number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
  struct sigaction action = {};
  action.sa_handler = on_signal;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  sigaction(number, &action, nullptr);
}

}  // namespace

void vel_catch_interrupts() {
  catch_signal(SIGINT);
  catch_signal(SIGTERM);
}

bool vel_interrupted() {
  return interrupted.load(std::memory_order_relaxed);
}
