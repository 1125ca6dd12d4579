#pragma once

#include "annDocument.h"
#include "v2vReport.h"
#include "v2vTranslationElements.h"
#include "v2vTranslatorLibrary.h"

class velabsAppInfo;

// Writes the document and puts the file in place. False when it failed or somebody wants to stop: nothing has changed
// then, and what failed was said.
bool v2v_write_output(const v2vTranslationElements& elements, const v2vTranslatorLibrary& library,
                      const annDocument& document, const velabsAppInfo* app_info, v2vReport& report);
