#pragma once

#include "apLanguage.h"

// How one translation of a run ended, as recorded by the application.
enum vlnProgressFinish : int {
  vlnFINISH_NONE = 0,
  vlnFINISH_DONE = 1,
  vlnFINISH_FAILED = 2,
  vlnFINISH_CANCELLED = 3,
};
