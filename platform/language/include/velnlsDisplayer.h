#pragma once

#include "apExport.h"

// Something that shows text to a person.
class VELPLATFORM_API velnlsDisplayer {
 public:
  virtual void display(const char* text) = 0;
  virtual ~velnlsDisplayer();
};
