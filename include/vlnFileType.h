#pragma once

#include "apLanguage.h"

// What stands at a path.
enum vlnFileType : int {
  vlnFileTypeNone = 0,
  vlnFileTypeFile = 1,
  vlnFileTypeOther = 2,  // a directory, a pipe, a device
};
