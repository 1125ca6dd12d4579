#pragma once

#include <StepData_StepModel.hxx>

#include "velAngularUnit.h"

// Units that the kernel cannot write, declared in a model that it made.

// Turns a model that declares feet, but whose numbers are yards, into one that declares yards.
void step_state_yards(const Handle(StepData_StepModel) & model);

// Converts the plane angles of a model from radians to the unit. The model must have no curves in the parameters of
// surfaces, because they contain angles too.
void step_state_angles(const Handle(StepData_StepModel) & model, velAngularUnit unit);
