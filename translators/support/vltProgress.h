#pragma once

#include <cstddef>

#include "apMappedFile.h"
#include "velabsOutput.h"

// Reports progress and checks for cancellation once in every `step` of `total`. If a file is given, the memory of its
// part that was already read is released.
class vltProgress {
 public:
  vltProgress(velabsOutput& output, std::size_t total, std::size_t step, apMappedFile* file = nullptr)
      : output_(output), file_(file), total_(total), step_(step), next_(step) {}

  // False when the work is cancelled.
  bool reached(std::size_t done) { return done < next_ || report(done); }

 private:
  bool report(std::size_t done);

  velabsOutput& output_;
  apMappedFile* file_;
  std::size_t total_;
  std::size_t step_;
  std::size_t next_;
};
