#pragma once

#include "apLanguage.h"

// The suite's Boolean. A separate type, so that a Boolean resource differs from an integer one. As text "0" or "1".
enum utBool { utFALSE = 0, utTRUE = 1 };
