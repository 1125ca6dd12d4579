#pragma once

#include "apExport.h"
#include "apString.h"

// Decides whether two strings are equal.
class VELPLATFORM_API apIStringCompare {
 public:
  virtual ~apIStringCompare();
  virtual bool equal(const apString& left, const apString& right) const = 0;
};
