#pragma once

#include "apLanguage.h"

// The directories that the application directory map knows. The numbers are fixed.
enum vlnQRMDirectory : int {
  vlnDIRECTORY_SYSTEM = 0,
  vlnDIRECTORY_LIBRARY = 1,   // translator libraries
  vlnDIRECTORY_SERVICES = 2,  // service libraries
  vlnDIRECTORY_LOCALE = 3,
  vlnDIRECTORY_SCHEMAS = 4,  // the user's application data first, once it is set up
  vlnDIRECTORY_HELP = 5,
  vlnDIRECTORY_EXECUTABLE_PATH = 6,  // as a search path; also the result for an unknown value
  vlnDIRECTORY_EXAMPLES = 7,
  vlnDIRECTORY_APP_DATA = 8,
  vlnDIRECTORY_MISC = 9,
  vlnDIRECTORY_EXECUTABLE = 10,  // as one directory
};
