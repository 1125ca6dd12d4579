#pragma once

#include <cstddef>

#include "velabsOutput.h"

// Limits the amount of data decoded from a file, because a file may refer to the same bytes many times. Also reports
// progress and checks for cancellation.
class gltfWork {
 public:
  // Elements between two checks for cancellation.
  static constexpr std::size_t step = std::size_t{1} << 16;

  explicit gltfWork(velabsOutput& output) : output_(output) {}

  // Each byte of input raises the limit of elements.
  void add_bytes(std::size_t count) { bytes_ += count; }

  // False when these further vertices or corners exceed the limit for a file of this size.
  bool allows(std::size_t elements);

  // False when the work is cancelled. `share` is the part of the meshes that is done.
  bool goes_on(double share);
  bool goes_on() const { return !output_.cancelled(); }

 private:
  velabsOutput& output_;
  std::size_t bytes_ = 0;
  std::size_t elements_ = 0;
};
