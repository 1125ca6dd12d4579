#pragma once

#include <StepData_StepModel.hxx>

// How many millimetres the unit of length has in which the main product is given: the first one that is part of no
// other. 0 when the file names none.
double step_unit_of(const Handle(StepData_StepModel) & model);
