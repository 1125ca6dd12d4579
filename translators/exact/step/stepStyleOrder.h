#pragma once

#include <StepData_StepModel.hxx>

// The kernel numbers the styles of parts in the order of addresses in memory, which differs from run to run. Afterwards
// they stand in the order of the shapes that they colour.
void step_order_styles(const Handle(StepData_StepModel) & model);
