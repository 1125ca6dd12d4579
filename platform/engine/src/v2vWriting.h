#pragma once

#include "annDocument.h"
#include "v2vReport.h"
#include "v2vTranslationElements.h"
#include "v2vTranslatorLibrary.h"

class velabsAppInfo;

// Writes the document and replaces the output file. Returns false after a failure or a cancellation; the output file is
// then unchanged and a failure was reported.
bool v2v_write_output(const v2vTranslationElements& elements, const v2vTranslatorLibrary& library,
                      const annDocument& document, const velabsAppInfo* app_info, v2vReport& report);
