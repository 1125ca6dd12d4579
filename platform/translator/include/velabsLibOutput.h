#pragma once

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsLibBase.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"
#include "velabsResult.h"

class velabsAppInfo;

// A translator that writes one format to the stream given to its constructor. One object writes one file.
class VELPLATFORM_API velabsLibOutput : public velabsLibBase {
 public:
  // Writes the document. A failure of the stream need not be reported: the owner of the stream checks it. Each kind of
  // content that the format does not support is reported once.
  virtual velabsResult write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) = 0;
};

using velabsWriteWrapper = velabsLibOutput* (*)(velabsOfStream*, const velabsAppInfo*);

// NOLINTBEGIN(bugprone-macro-parentheses): a type cannot be in parentheses.

// Exports the entry points of an output library; the constructor of `type` takes the stream.
#define VELABS_OUTPUT_LIBRARY(type)                                                                               \
  extern "C" __attribute__((visibility("default"))) int velabs_interface_number() {                               \
    return velabs_interface;                                                                                      \
  }                                                                                                               \
  extern "C" __attribute__((visibility("default"))) velabsLibOutput* velabs_write_wrapper(velabsOfStream* stream, \
                                                                                          const velabsAppInfo*) { \
    return new type(stream);                                                                                      \
  }

// NOLINTEND(bugprone-macro-parentheses)
