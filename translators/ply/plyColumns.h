#pragma once

#include <string_view>

#include "annVertices.h"
#include "plyPlan.h"

// Reads many vertices at once from the binary forms, one property at a time: if entries have a fixed size, the values
// of a property have a fixed distance. For elements without lists.
class plyColumns {
 public:
  explicit plyColumns(const plyPlan& plan);

  std::size_t entry_size() const { return entry_size_; }

  // Appends `count` vertices from `at`, with colours as in the file. Returns the index among them of the first one
  // with a coordinate that is not finite; `count` when there is none.
  template <bool swapped>
  std::size_t append(const char* at, std::size_t count, double factor, annVertices& vertices) const;

 private:
  template <bool swapped, typename To>
  void copy(plyRole role, const char* at, std::size_t count, To* to, std::size_t step) const;

  const plyPlan& plan_;
  std::size_t entry_size_ = 0;
  std::array<std::size_t, plyROLES> offsets_{};
};
