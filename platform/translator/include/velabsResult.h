#pragma once

#include "apLanguage.h"

// The result of a translator's work. A failure was already reported through its output.
enum velabsResult { velabsDONE, velabsFAILED, velabsCANCELLED };
