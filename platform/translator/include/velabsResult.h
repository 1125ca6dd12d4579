#pragma once

#include "apLanguage.h"

// How the work of a translator ended. What failed was said through its output before.
enum velabsResult { velabsDONE, velabsFAILED, velabsCANCELLED };
