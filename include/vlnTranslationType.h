#pragma once

#include "apLanguage.h"

// What kind of run a record is about.
enum vlnTranslationType : int {
  vlnTRANSLATION_UNSET = 0,
  vlnTRANSLATION_SINGLE = 1,  // one input file
  vlnTRANSLATION_MERGE = 2,   // several input files into one output
};
