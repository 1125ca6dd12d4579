#pragma once

#include <StepData_StepModel.hxx>
#include <string>

#include "velabsOutput.h"

// Why a parsed file gave no shapes.
std::string step_why_empty(const Handle(StepData_StepModel) & model);

// Reports, in one note for each kind, content of a parsed file that is not read: dimensions, annotations and layers.
// Only shapes, names and colours are read.
void step_tell_left_out(const Handle(StepData_StepModel) & model, velabsOutput& output);
