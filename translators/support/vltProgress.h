#pragma once

#include <cstddef>

#include "apMappedFile.h"
#include "velabsOutput.h"

// Tells how far the work has come and asks whether it is still wanted, but not too often: each `step` of `total`. A
// file given along gives back the memory of what lies behind.
class vltProgress {
 public:
  vltProgress(velabsOutput& output, std::size_t total, std::size_t step, apMappedFile* file = nullptr)
      : output_(output), file_(file), total_(total), step_(step), next_(step) {}

  // False once the work is cancelled.
  bool reached(std::size_t done) { return done < next_ || report(done); }

 private:
  bool report(std::size_t done);

  velabsOutput& output_;
  apMappedFile* file_;
  std::size_t total_;
  std::size_t step_;
  std::size_t next_;
};
