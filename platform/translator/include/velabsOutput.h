#pragma once

#include "apExport.h"
#include "utString.h"

enum velabsSeverity { velabsNOTE, velabsWARNING, velabsERROR };

// The interface through which a translator reports messages and progress. Every operation is thread-safe.
class VELPLATFORM_API velabsOutput {
 public:
  virtual ~velabsOutput();

  // One line of text without its line break. The engine adds the file's name, so a translator gives only the position
  // (line or byte) and the reason.
  virtual void message(velabsSeverity severity, const utString& text) = 0;

  // The completed part of the work, 0 to 100.
  virtual void progress(int percent) = 0;

  // True once the work should stop; a translator then returns velabsCANCELLED soon.
  virtual bool cancelled() const = 0;
};
