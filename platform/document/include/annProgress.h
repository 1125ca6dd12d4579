#pragma once

#include "apExport.h"

// Progress and cancellation callback for long operations. Thread-safe.
class VELPLATFORM_API annProgress {
 public:
  virtual ~annProgress();

  // Reports the completed share of the work, from 0 to 1.
  virtual void done(double share) = 0;

  // True once the work should stop.
  virtual bool cancelled() const = 0;
};
