#pragma once

#include <functional>

#include "apExport.h"

// One failed assertion, reported to developers.
struct apAssertion {
  const char* source;
  int line;
  const char* message;
  const char* function;
  const char* condition;
};

// Writes assertion reports to standard error, or to the sink that a program sets. Never aborts.
class VELPLATFORM_API apAssertionReporter {
 public:
  using Sink = std::function<void(const apAssertion&)>;

  // An empty sink selects standard error again. Returns the previous sink.
  static Sink set_sink(Sink sink);
  static void report(const char* source, int line, const char* message, const char* function, const char* condition);
};
