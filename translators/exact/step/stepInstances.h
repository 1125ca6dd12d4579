#pragma once

#include <StepData_StepModel.hxx>
#include <TDocStd_Document.hxx>
#include <Transfer_FinderProcess.hxx>

// Gives each instance in a model that the kernel made of a document the name of its component there. The kernel finds
// instances by their shape and place, so it mixes up those of different assemblies that are equal in both.
void step_name_instances(const Handle(TDocStd_Document) & source, const Handle(Transfer_FinderProcess) & made,
                         const Handle(StepData_StepModel) & model);
