#pragma once

#include <TopoDS_Shape.hxx>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "exaExport.h"

// Which objects contain which others. It is checked before a tree is traversed, because a file of a few lines can
// repeat references very often. The tree then exceeds any memory, or is so deep that recursion crashes the process.
// Objects are identified by address.
class VELEXACT_API exaNesting {
 public:
  static constexpr double most_occurrences = 2'000'000;
  static constexpr std::size_t most_levels = 1'000;

  // Call once for each reference.
  void add(const void* outer, const void* inner);

  // The error as the end of a sentence that begins with "it"; empty when the tree can be traversed.
  std::string fault() const;

 private:
  std::uint32_t number_of(const void* thing);

  std::unordered_map<const void*, std::uint32_t> numbers_;
  std::vector<std::vector<std::uint32_t>> inner_;
};

// The compounds of a shape and their content, down to solids and loose faces.
VELEXACT_API exaNesting exa_nesting(const TopoDS_Shape& shape);
