#pragma once

#include <StepData_StepModel.hxx>
#include <Transfer_TransientProcess.hxx>

#include "exaHidden.h"
#include "velabsOutput.h"

// The bodies that INVISIBILITY lists by style or by layer, after the shapes of the file were made. Bodies that are
// hidden only in an instance or a view are not included; a note reports them.
exaHidden step_hidden(const Handle(StepData_StepModel) & model, const Handle(Transfer_TransientProcess) & made,
                      velabsOutput& output);
