#pragma once

#include <vector>

#include "v2vMerge.h"
#include "v2vReport.h"
#include "v2vThreadComm.h"
#include "v2vTranslatorElements.h"
#include "v2vTranslatorLibrary.h"

class velabsAppInfo;

// One input about to be read: what it is, and the library for it, or why there is none.
struct v2vInputTask {
  const v2vTranslatorElements* elements;
  const v2vTranslatorLibrary* library;
  utString failure;
};

// What becomes of an input that is valid but holds no geometry.
enum class v2vEmptyInput { fails, warns };

// Reads every input into a document of its own, several at once when there are several, and counts each. The models
// come in the order of the tasks. False when one of them failed or was not reached; what failed was said.
bool v2v_read_inputs(const std::vector<v2vInputTask>& tasks, v2vEmptyInput empty_input, const velabsAppInfo* app_info,
                     v2vReport& report, v2vThreadComm& comm, std::vector<v2vInputModel>& models);
