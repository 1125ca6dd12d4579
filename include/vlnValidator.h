#pragma once

#include "utString.h"
#include "vlnExport.h"

// An application's validation of numeric resource values.
class VLN_API vlnValidator {
 public:
  // Whether `value` is a valid integer for `key`.
  virtual bool validate_int(const utString& key, const utString& value) = 0;
  // Whether `value` is a valid real number for `key`.
  virtual bool validate_double(const utString& key, const utString& value) = 0;
  virtual ~vlnValidator();
};
