#pragma once

#include <StepData_StepModel.hxx>
#include <string>

#include "velabsOutput.h"

// Why nothing could be made of a parsed file.
std::string step_why_empty(const Handle(StepData_StepModel) & model);

// Says in one note for each kind what a parsed file holds beside shapes, names and colours, which alone are read: what
// is measured and annotated, and layers.
void step_tell_left_out(const Handle(StepData_StepModel) & model, velabsOutput& output);
