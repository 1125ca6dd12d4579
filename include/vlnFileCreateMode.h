#pragma once

#include "apLanguage.h"

// How a file is opened to create it.
enum vlnFileCreateMode : int {
  vlnFileCreateAppend = 1,    // an existing file keeps its content
  vlnFileCreateTruncate = 2,  // an existing file is emptied
};
