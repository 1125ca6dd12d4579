#pragma once

#include "apExport.h"
#include "utObserverPtr.h"
#include "v2vThreadComm.h"
#include "v2vTranslationElements.h"
#include "v2vTranslatorLoader.h"
#include "velabsAppInfo.h"
#include "velabsOutput.h"

// The translation engine: reads every input into the document, in the order given, then writes once. Several inputs are
// read by worker threads. The target is replaced only by a complete file.
class VELPLATFORM_API v2vVel2vel {
 public:
  // Reports the request's warnings, then runs it. Returns nonzero if the output is complete. Returns 0, and reports the
  // file and the reason, if
  // - there is no input, or an input cannot be read or has no geometry;
  // - the output is unknown, is also an input, or cannot be written;
  // - the request was cancelled.
  //
  // `comm` counts every input. Messages and progress go to both outputs; either may be null. Exceptions of translators
  // are caught.
  int translate(utObserverPtr<velabsAppInfo> app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
                const v2vTranslationElements& elements, utObserverPtr<velabsOutput> primary,
                utObserverPtr<velabsOutput> secondary) const;

  // Reads every input into `document`, replacing its content, and writes nothing. An input without geometry is not a
  // failure here: it is reported as a warning.
  int read(utObserverPtr<velabsAppInfo> app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
           const v2vTranslatorElementscoPageArr& inputs, annDocument& document, utObserverPtr<velabsOutput> primary,
           utObserverPtr<velabsOutput> secondary) const;

  // Reports as an error why no translator was found for an input: it is missing, cannot be read, is empty or has a
  // format that no translator reads. For a driver that rejects a request because of such a file.
  void report_input_without_translator(const utString& file, utObserverPtr<velabsOutput> primary,
                                       utObserverPtr<velabsOutput> secondary) const;
};
