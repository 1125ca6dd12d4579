#include "apAssertionReporter.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex& sink_lock() {
  static auto* lock = new std::mutex;
  return *lock;
}

apAssertionReporter::Sink& current_sink() {
  static auto* sink = new apAssertionReporter::Sink;
  return *sink;
}

const char* text_or_nothing(const char* text) {
  return text ? text : "";
}

}  // namespace

apAssertionReporter::Sink apAssertionReporter::set_sink(Sink sink) {
  std::lock_guard guard(sink_lock());
  return std::exchange(current_sink(), std::move(sink));
}

void apAssertionReporter::report(const char* source, int line, const char* message, const char* function,
                                 const char* condition) {
  const apAssertion assertion{text_or_nothing(source), line, text_or_nothing(message), text_or_nothing(function),
                              text_or_nothing(condition)};
  try {
    Sink sink;
    {
      // The sink is called without the lock, so that it may report or replace the sink.
      std::lock_guard guard(sink_lock());
      sink = current_sink();
    }
    if (sink) return sink(assertion);
  } catch (...) {
    // If the sink throws, the report goes to standard error.
  }
  std::fprintf(stderr, "%s:%d: %s: %s (%s)\n", assertion.source, assertion.line, assertion.function, assertion.message,
               assertion.condition);
}
