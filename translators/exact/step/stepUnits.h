#pragma once

#include <StepData_StepModel.hxx>

// The length unit of the main product in millimetres; the main product is the first one that is not part of another. 0
// when the file declares no unit.
double step_unit_of(const Handle(StepData_StepModel) & model);
