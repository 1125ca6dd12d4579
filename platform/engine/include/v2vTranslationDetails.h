#pragma once

#include "apLanguage.h"

// The progress of a translation: the number of inputs processed, and of those that could not be read.
class v2vTranslationDetails {
 public:
  v2vTranslationDetails() = default;
  v2vTranslationDetails(int processed, int failed) : processed_(processed), failed_(failed) {}

  int num_processed() const { return processed_; }
  int num_failed() const { return failed_; }

 private:
  int processed_ = 0;
  int failed_ = 0;
};
