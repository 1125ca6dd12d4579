#pragma once

#include <cstddef>

#include "velabsOutput.h"

// How much is decoded from a file: guards the memory against files that show the same bytes over and over, tells
// progress and asks whether the work is still wanted.
class gltfWork {
 public:
  // Elements between two questions.
  static constexpr std::size_t step = std::size_t{1} << 16;

  explicit gltfWork(velabsOutput& output) : output_(output) {}

  // Bytes that a file brings along allow for more elements.
  void add_bytes(std::size_t count) { bytes_ += count; }

  // False when so many further vertices or corners are more than an honest file of this size decodes to.
  bool allows(std::size_t elements);

  // False once the work is cancelled. `share` of all meshes are read.
  bool goes_on(double share);
  bool goes_on() const { return !output_.cancelled(); }

 private:
  velabsOutput& output_;
  std::size_t bytes_ = 0;
  std::size_t elements_ = 0;
};
