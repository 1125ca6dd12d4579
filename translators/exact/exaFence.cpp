#include "exaFence.h"

#include <atomic>
#include <csetjmp>
#include <csignal>
#include <cstdint>
#include <iostream>
#include <mutex>
#include <streambuf>
#include <utility>

namespace {

// An access to a member of an object at address 0 is below this address.
constexpr std::uintptr_t null_page_end = 1 << 16;

thread_local sigjmp_buf* landing = nullptr;
thread_local int silent = 0;

// Set when the kernel was interrupted in the middle of an operation: its locks and data may be inconsistent.
std::atomic<bool> broken{false};

struct sigaction previous = {};
std::mutex install_lock;
int installed = 0;

void on_fault(int signal, siginfo_t* info, void*) {
  if (landing && reinterpret_cast<std::uintptr_t>(info->si_addr) < null_page_end) siglongjmp(*landing, 1);
  // Returning repeats the fault, which the previous handler then gets.
  sigaction(signal, &previous, nullptr);
}

class Handler {
 public:
  Handler() {
    std::lock_guard guard(install_lock);
    if (installed++ > 0) return;
    struct sigaction action = {};
    action.sa_sigaction = on_fault;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigemptyset(&action.sa_mask);
    sigaction(SIGSEGV, &action, &previous);
  }
  ~Handler() {
    std::lock_guard guard(install_lock);
    if (--installed == 0) sigaction(SIGSEGV, &previous, nullptr);
  }
};

// A stream buffer that drops output of silenced threads and forwards that of all others.
class Gag : public std::streambuf {
 public:
  explicit Gag(std::ostream& stream) : target_(stream.rdbuf()) { stream.rdbuf(this); }

 protected:
  int_type overflow(int_type c) override {
    if (silent > 0 || traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    return target_->sputc(traits_type::to_char_type(c));
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    return silent > 0 ? count : target_->sputn(bytes, count);
  }
  int sync() override { return target_->pubsync(); }

 private:
  std::streambuf* target_;
};

void gag_streams() {
  // Never destroyed, because the streams are flushed at exit.
  static const Gag* const gags[] = {new Gag(std::cout), new Gag(std::cerr)};
  static_cast<void>(gags);
}

class Silence {
 public:
  Silence() { ++silent; }
  ~Silence() { --silent; }
};

class Landing {
 public:
  explicit Landing(sigjmp_buf& place) : outer_(landing) { landing = &place; }
  ~Landing() { landing = outer_; }

 private:
  sigjmp_buf* outer_;
};

}  // namespace

exaAloud::exaAloud() : silent_(std::exchange(silent, 0)) {}

exaAloud::~exaAloud() {
  silent = silent_;
}

exaOutcome exa_fenced(const std::function<void()>& work) {
  if (broken) return exaOutcome::REFUSED;
  gag_streams();
  const Handler handler;
  const Silence silence;
  const int silence_here = silent;
  sigjmp_buf place;
  const Landing here(place);
  if (sigsetjmp(place, 1) != 0) {
    silent = silence_here;
    landing = &place;
    broken = true;
    return exaOutcome::BROKE_DOWN;
  }
  work();
  return exaOutcome::DONE;
}
