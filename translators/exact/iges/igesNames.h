#pragma once

#include <IGESData_IGESModel.hxx>

// Makes UTF-8 of all names in a parsed file, as the kernel takes them to be: bytes that are none are taken for Latin 1.
void iges_repair_names(const Handle(IGESData_IGESModel) & model);
