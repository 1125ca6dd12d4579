#pragma once

#include <StepData_StepModel.hxx>

#include "utString.h"

// Gives a model the header of this program and takes out what differs from one run to the next: the time, unless
// SOURCE_DATE_EPOCH gives one, and numbers that count on in the process.
void step_make_repeatable(const Handle(StepData_StepModel) & model, const utString& name);
