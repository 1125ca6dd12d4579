#pragma once

#include <StepData_StepModel.hxx>
#include <Transfer_TransientProcess.hxx>

#include "exaHidden.h"

// The bodies of a file whose shapes were made that INVISIBILITY lists, by their style or by a layer that they are on.
exaHidden step_hidden(const Handle(StepData_StepModel) & model, const Handle(Transfer_TransientProcess) & made);
