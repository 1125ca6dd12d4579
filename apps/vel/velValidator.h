#pragma once

#include "velMessages.h"
#include "vlnValidator.h"

// Accepts whole numbers that an int holds and finite real numbers, both with a decimal point whatever the locale, as
// far as they make sense for their key.
class velValidator : public vlnValidator {
 public:
  struct Bounds {
    const char* key;
    double least, most;
    bool without_least;
    velMessage text;  // what a value must be
  };

  bool validate_int(const utString& key, const utString& value) override;
  bool validate_double(const utString& key, const utString& value) override;

  // Null for a key that takes every number.
  static const Bounds* bounds(const utString& key);
};
