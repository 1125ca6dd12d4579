#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "velabsOutput.h"

// Collects findings that a file may have by the thousand. Each kind is reported once, at the end, with its count and
// the line of the first one. The number of kinds is limited; further ones are only counted, and reported with their
// maximum severity.
class vltOnce {
 public:
  explicit vltOnce(velabsOutput& output) : output_(output) {}

  // `what` is the text and identifies the kind: "line elements are left out". `line` is 0 when it is unknown.
  void count(velabsSeverity severity, std::string_view what, std::size_t line = 0, std::size_t how_many = 1);

  // Reports all kinds in the order of their first finding, then clears them.
  void tell();

 private:
  struct Kind {
    velabsSeverity severity;
    std::size_t first_line;
    std::size_t count;
  };
  velabsOutput& output_;
  std::map<std::string, Kind, std::less<>> kinds_;
  std::vector<std::string_view> order_;
  std::size_t more_ = 0;
  velabsSeverity more_severity_ = velabsNOTE;
};
