#pragma once

#include <string>
#include <vector>

#include "velMessages.h"
#include "vlnValidator.h"

// Accepts whole numbers that an int holds, finite real numbers, both with a decimal point whatever the locale, and
// texts, as far as they make sense for their key.
class velValidator : public vlnValidator {
 public:
  struct Bounds {
    const char* key;
    double least, most;
    bool without_least;
    velMessage text;   // what a value must be
    velMessage range;  // the same in short
  };

  bool validate_int(const utString& key, const utString& value) override;
  bool validate_double(const utString& key, const utString& value) override;

  // Null for a key that takes every number.
  static const Bounds* bounds(const utString& key);

  // Whether a text makes sense for its key.
  static bool validate_text(const utString& key, const utString& value);

  // The words that a key takes that knows some words only; none for other keys.
  static std::vector<std::string> words(const utString& key);
};
