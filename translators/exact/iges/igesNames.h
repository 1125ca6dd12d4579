#pragma once

#include <IGESData_IGESModel.hxx>

// Converts all names in a parsed file to UTF-8, which the kernel expects. Bytes that are not UTF-8 are read as
// Latin-1.
void iges_repair_names(const Handle(IGESData_IGESModel) & model);
