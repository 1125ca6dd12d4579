#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "velabsOutput.h"

// Names that differ between the file and the document, reported in one note.
class vltRenames {
 public:
  // `own` is the name in the document, empty when there is none.
  void take(std::string_view own, std::string_view written);

  // Reports the first renamed name and their number; nothing when there is none. `rule` describes how the format names
  // objects: "OBJ names materials by one word each, that no other has".
  void tell(const char* rule, velabsOutput& output) const;

 private:
  std::string first_;
  std::size_t count_ = 0;
};
