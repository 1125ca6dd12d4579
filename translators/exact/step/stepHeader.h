#pragma once

#include <StepData_StepModel.hxx>

#include "utString.h"

// Writes this program's header into a model and removes what differs between runs: the time, unless SOURCE_DATE_EPOCH
// is set, and numbers that continue through the process.
void step_make_repeatable(const Handle(StepData_StepModel) & model, const utString& name);
