#pragma once

#include <vector>

#include "v2vMerge.h"
#include "v2vReport.h"
#include "v2vThreadComm.h"
#include "v2vTranslatorElements.h"
#include "v2vTranslatorLibrary.h"

class velabsAppInfo;

// One input to read: its file and resources, and its library or the reason why there is none.
struct v2vInputTask {
  const v2vTranslatorElements* elements;
  const v2vTranslatorLibrary* library;
  utString failure;
};

// How to treat an input that is valid but has no geometry.
enum class v2vEmptyInput { fails, warns };

// Reads each input into a separate document, in parallel if there are several, and counts each. The models have the
// order of the tasks. Returns false if an input failed or was not reached; the failures were reported.
bool v2v_read_inputs(const std::vector<v2vInputTask>& tasks, v2vEmptyInput empty_input, const velabsAppInfo* app_info,
                     v2vReport& report, v2vThreadComm& comm, std::vector<v2vInputModel>& models);
