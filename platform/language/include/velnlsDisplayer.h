#pragma once

#include "apExport.h"

// An interface for showing text to the user.
class VELPLATFORM_API velnlsDisplayer {
 public:
  virtual void display(const char* text) = 0;
  virtual ~velnlsDisplayer();
};
