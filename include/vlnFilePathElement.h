#pragma once

#include "apLanguage.h"

// The parts of a file's path.
enum vlnFilePathElement : int {
  vlnFileDirectory = 1,
  vlnFileName = 2,  // without its extension
  vlnFileExtension = 3,
};
