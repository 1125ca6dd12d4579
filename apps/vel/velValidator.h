#pragma once

#include "vlnValidator.h"

// Accepts whole numbers that an int holds and finite real numbers, both with a decimal point whatever the locale.
class velValidator : public vlnValidator {
 public:
  bool validate_int(const utString& key, const utString& value) override;
  bool validate_double(const utString& key, const utString& value) override;
};
