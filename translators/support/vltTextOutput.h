#pragma once

#include <optional>
#include <string_view>

#include "velTableInstance.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"

// Writes text and numbers to an output stream.
class vltTextOutput {
 public:
  // `digits` is the number of significant digits; 0 gives the shortest text that reads back as the same number.
  vltTextOutput(velabsOfStream& stream, int digits) : stream_(stream), digits_(digits) {}

  void text(std::string_view text);
  void number(double value);
  // Always the shortest text.
  void number(float value);
  void number(std::size_t value);

 private:
  velabsOfStream& stream_;
  int digits_;
};

// The resource DIGITS: 0 to 17. Empty, with a message, for any other value.
std::optional<int> vlt_digits(const velTableInstance& resources, velabsOutput& output);
