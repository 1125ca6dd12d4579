#pragma once

#include "apLanguage.h"

// What came of setting the application directory map up.
enum vlnAppMapInit : int {
  vlnAppMapInitOk = 0,
  vlnAppMapInitNoAppDataDir = 1,  // no application data directory could be found or created
};
