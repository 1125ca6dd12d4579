#pragma once

#include "apLanguage.h"

// The type of the file system entry at a path.
enum vlnFileType : int {
  vlnFileTypeNone = 0,
  vlnFileTypeFile = 1,
  vlnFileTypeOther = 2,  // a directory, a pipe, a device
};
