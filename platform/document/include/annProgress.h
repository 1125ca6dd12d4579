#pragma once

#include "apExport.h"

// Whom long work on a part of a document tells how far it is, and asks whether it is still wanted. Both may be called
// from several threads at once.
class VELPLATFORM_API annProgress {
 public:
  virtual ~annProgress();

  // How much of the work is done, from 0 to 1.
  virtual void done(double share) = 0;

  // True once somebody wants the work to stop.
  virtual bool cancelled() const = 0;
};
