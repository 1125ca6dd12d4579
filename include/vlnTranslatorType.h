#pragma once

#include "apLanguage.h"

// The direction of a translator.
enum vlnTranslatorType : int {
  vlnTRANSLATOR_INPUT = 0,   // reads a foreign file
  vlnTRANSLATOR_OUTPUT = 1,  // writes a foreign file
};
