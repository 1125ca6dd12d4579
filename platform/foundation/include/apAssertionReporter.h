#pragma once

#include <functional>

#include "apExport.h"

// One broken assumption, told to developers.
struct apAssertion {
  const char* source;
  int line;
  const char* message;
  const char* function;
  const char* condition;
};

// Where assertion reports go: to standard error, or to the sink that a program puts in its place. Never aborts.
class VELPLATFORM_API apAssertionReporter {
 public:
  using Sink = std::function<void(const apAssertion&)>;

  // An empty sink brings standard error back. Returns the one that was in force.
  static Sink set_sink(Sink sink);
  static void report(const char* source, int line, const char* message, const char* function, const char* condition);
};
