#pragma once

#include "apExport.h"
#include "apString.h"

// The environment variables of a process.
class VELPLATFORM_API apIProcessEnvironmentOperations {
 public:
  virtual ~apIProcessEnvironmentOperations();

  // Invalid if the variable is not set.
  virtual apString get(const apString& name) const = 0;

  // Nonzero on success. A name that is empty or contains "=" is rejected.
  virtual int put(const apString& name, const apString& value) = 0;
};
