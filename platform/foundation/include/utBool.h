#pragma once

#include "apLanguage.h"

// The suite's Boolean: a type of its own, so that a resource of it is told from a whole number. As text "0" or "1".
enum utBool { utFALSE = 0, utTRUE = 1 };
