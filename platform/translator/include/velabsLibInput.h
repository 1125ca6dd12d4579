#pragma once

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsLibBase.h"
#include "velabsOutput.h"
#include "velabsResult.h"

class velabsAppInfo;

// A translator that reads one format. One object reads one file; several objects may be used in parallel.
class VELPLATFORM_API velabsLibInput : public velabsLibBase {
 public:
  // Reads `file` into an empty document. A failure is reported through `output`, with the position and the reason; the
  // document is then discarded. The engine names unnamed top nodes after the file.
  virtual velabsResult read(const utString& file, const velTableInstance& resources, annDocument& document,
                            velabsOutput& output) = 0;
};

using velabsReadWrapper = velabsLibInput* (*)(const velabsAppInfo*);

// NOLINTBEGIN(bugprone-macro-parentheses): a type cannot be in parentheses.

// Exports the entry points of an input library.
#define VELABS_INPUT_LIBRARY(type)                                                                              \
  extern "C" __attribute__((visibility("default"))) int velabs_interface_number() {                             \
    return velabs_interface;                                                                                    \
  }                                                                                                             \
  extern "C" __attribute__((visibility("default"))) velabsLibInput* velabs_read_wrapper(const velabsAppInfo*) { \
    return new type;                                                                                            \
  }

// NOLINTEND(bugprone-macro-parentheses)
