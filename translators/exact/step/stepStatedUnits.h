#pragma once

#include <StepData_StepModel.hxx>

#include "velAngularUnit.h"

// Units that the kernel does not write by itself, stated in a model that it made.

// The numbers of a model that states feet are yards.
void step_state_yards(const Handle(StepData_StepModel) & model);

// Turns the plane angles of a model that states radians into the unit. Curves in the parameters of surfaces hold angles
// as well and must not be in the model.
void step_state_angles(const Handle(StepData_StepModel) & model, velAngularUnit unit);
