#pragma once

#include "apExport.h"
#include "utString.h"

enum velabsSeverity { velabsNOTE, velabsWARNING, velabsERROR };

// Where a translator tells what happens. Every operation may be called from several threads at once.
class VELPLATFORM_API velabsOutput {
 public:
  virtual ~velabsOutput();

  // One line of text without its line break. The engine puts the file's name in front of what translators say, so they
  // name the place (line or byte) and the reason.
  virtual void message(velabsSeverity severity, const utString& text) = 0;

  // How far the work has come, 0 to 100.
  virtual void progress(int percent) = 0;

  // True once somebody wants the work to stop; a translator then returns velabsCANCELLED soon.
  virtual bool cancelled() const = 0;
};
