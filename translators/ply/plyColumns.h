#pragma once

#include <string_view>

#include "annVertices.h"
#include "plyPlan.h"

// Takes many vertices at once from the binary forms, one property after another: entries of one size make each property
// a column with a fixed distance between its numbers. For elements without lists.
class plyColumns {
 public:
  explicit plyColumns(const plyPlan& plan);

  std::size_t entry_size() const { return entry_size_; }

  // Appends `count` vertices that stand at `at`, colours as they are in the file. Gives the number of the first one
  // among them with a coordinate that is not finite, `count` when there is none.
  template <bool swapped>
  std::size_t append(const char* at, std::size_t count, double factor, annVertices& vertices) const;

 private:
  template <bool swapped, typename To>
  void copy(plyRole role, const char* at, std::size_t count, To* to, std::size_t step) const;

  const plyPlan& plan_;
  std::size_t entry_size_ = 0;
  std::array<std::size_t, plyROLES> offsets_{};
};
