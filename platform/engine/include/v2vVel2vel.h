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
  // Passes the request's warnings on, then runs it. Nonzero when the output stands. 0, and a message that names the
  // file and the reason, when there is no input, one cannot be read or holds no geometry, the output is unknown, is an
  // input too or cannot be written, or the work was cancelled. `comm` counts every input. Messages and progress go to
  // both outputs; either may be null. No exception of a translator leaves this call.
  int translate(utObserverPtr<velabsAppInfo> app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
                const v2vTranslationElements& elements, utObserverPtr<velabsOutput> primary,
                utObserverPtr<velabsOutput> secondary) const;

  // The first half alone: reads every input into `document`, in place of what it held, and writes nothing. An input
  // without geometry is no failure here: a warning names it.
  int read(utObserverPtr<velabsAppInfo> app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
           const v2vTranslatorElementscoPageArr& inputs, annDocument& document, utObserverPtr<velabsOutput> primary,
           utObserverPtr<velabsOutput> secondary) const;

  // Says in an error why no translator was found for an input: it is missing, cannot be read, is empty or is in a
  // format that no translator reads. For a driver that refuses a request for such a file.
  void report_input_without_translator(const utString& file, utObserverPtr<velabsOutput> primary,
                                       utObserverPtr<velabsOutput> secondary) const;
};
