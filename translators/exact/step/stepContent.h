#pragma once

#include <StepData_StepModel.hxx>
#include <string>

// Why nothing could be made of a parsed file.
std::string step_why_empty(const Handle(StepData_StepModel) & model);
