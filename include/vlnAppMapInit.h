#pragma once

#include "apLanguage.h"

// The result of initialising the application directory map.
enum vlnAppMapInit : int {
  vlnAppMapInitOk = 0,
  vlnAppMapInitNoAppDataDir = 1,  // no application data directory could be found or created
};
