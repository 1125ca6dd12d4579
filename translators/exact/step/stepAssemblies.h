#pragma once

#include <StepData_StepModel.hxx>

#include "exaNesting.h"

// Which products and representations of a parsed file contain which others.
exaNesting step_nesting(const Handle(StepData_StepModel) & model);
