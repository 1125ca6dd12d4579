#pragma once

#include <TopoDS_Shape.hxx>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "exaExport.h"

// What stands in what, looked at before anybody walks through it: a file of a few lines can name one thing in another
// so often that the tree that comes of it fills every memory, or so deep that recursion ends the process. Things are
// told apart by their address.
class VELEXACT_API exaNesting {
 public:
  static constexpr double most_occurrences = 2'000'000;
  static constexpr std::size_t most_levels = 1'000;

  // Once for each time that it stands there.
  void add(const void* outer, const void* inner);

  // What is wrong with the tree as the end of a sentence that begins with "it"; nothing when it can be walked through.
  std::string fault() const;

 private:
  std::uint32_t number_of(const void* thing);

  std::unordered_map<const void*, std::uint32_t> numbers_;
  std::vector<std::vector<std::uint32_t>> inner_;
};

// The compounds of a shape and what they hold, down to solids and loose faces.
VELEXACT_API exaNesting exa_nesting(const TopoDS_Shape& shape);
