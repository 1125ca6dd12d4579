#pragma once

#include <string>
#include <vector>

#include "velMessages.h"
#include "vlnValidator.h"

// Accepts integers that fit into an int, finite real numbers and texts, if they are valid for their key. Numbers have a
// decimal point in every locale.
class velValidator : public vlnValidator {
 public:
  struct Bounds {
    const char* key;
    double least, most;
    bool without_least;
    velMessage text;   // describes the accepted values
    velMessage range;  // the same, shorter
  };

  bool validate_int(const utString& key, const utString& value) override;
  bool validate_double(const utString& key, const utString& value) override;

  // Null for a key that accepts every number.
  static const Bounds* bounds(const utString& key);

  // Whether a text is valid for its key.
  static bool validate_text(const utString& key, const utString& value);

  // The words that a key accepts; empty for keys without a fixed list of words.
  static std::vector<std::string> words(const utString& key);
};
