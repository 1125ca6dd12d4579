#pragma once

#include "apLanguage.h"

// The kind of a run.
enum vlnTranslationType : int {
  vlnTRANSLATION_UNSET = 0,
  vlnTRANSLATION_SINGLE = 1,  // one input file
  vlnTRANSLATION_MERGE = 2,   // several input files into one output
};
