#pragma once

#include "apExport.h"
#include "apString.h"

// A policy by which two strings count as equal.
class VELPLATFORM_API apIStringCompare {
 public:
  virtual ~apIStringCompare();
  virtual bool equal(const apString& left, const apString& right) const = 0;
};
