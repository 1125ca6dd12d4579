#pragma once

#include "velabsAppInfo.h"
#include "vlnExport.h"

// Decides how an unexpected exception is handled. Returns 1: handle it. If MIRA_ASSERT is set in the environment,
// prints an assertion report and returns 0: leave the exception to a debugger.
VLN_API int vln_exception_handler(const velabsAppInfo& info);
