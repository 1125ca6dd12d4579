#pragma once

#include "velabsAppInfo.h"
#include "vlnExport.h"

// Asked what to do with an unexpected exception: 1, handle it, or, with MIRA_ASSERT set in the environment, an
// assertion report and 0, pass it on to a developer's debugger.
VLN_API int vln_exception_handler(const velabsAppInfo& info);
