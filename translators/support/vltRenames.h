#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "velabsOutput.h"

// Names that stand differently in a file than in the document, told in one note.
class vltRenames {
 public:
  // `own` is the name in the document, empty when there is none.
  void take(std::string_view own, std::string_view written);

  // Says which name was the first and how many there are; nothing when there is none. `rule` says how the format names
  // what: "OBJ names materials by one word each, that no other has".
  void tell(const char* rule, velabsOutput& output) const;

 private:
  std::string first_;
  std::size_t count_ = 0;
};
