#pragma once

#include <StepData_StepModel.hxx>

// The kernel numbers the styles of parts in the order of memory addresses, which differs between runs. Sorts them by
// the shapes that they colour.
void step_order_styles(const Handle(StepData_StepModel) & model);
