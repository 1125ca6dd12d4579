#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "velabsOutput.h"

// Findings of which a file may hold thousands, each kind of them told once, at the end, with how many there were and
// where the first one stood. A file that holds many kinds gets the first ones and a count of the others,
// told as gravely as the gravest of them.
class vltOnce {
 public:
  explicit vltOnce(velabsOutput& output) : output_(output) {}

  // `what` is both the kind and its text: "line elements are left out". `line` 0 stands for no place.
  void count(velabsSeverity severity, std::string_view what, std::size_t line = 0, std::size_t how_many = 1);

  // Says everything, in the order in which the kinds came up, and forgets it.
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
