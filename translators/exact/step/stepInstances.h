#pragma once

#include <StepData_StepModel.hxx>
#include <TDocStd_Document.hxx>
#include <Transfer_FinderProcess.hxx>

// Names each instance in a model after its component in the document from which the kernel made the model. The kernel
// finds instances by shape and placement, so it confuses equal ones of different assemblies.
void step_name_instances(const Handle(TDocStd_Document) & source, const Handle(Transfer_FinderProcess) & made,
                         const Handle(StepData_StepModel) & model);
