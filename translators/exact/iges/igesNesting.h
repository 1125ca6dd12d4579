#pragma once

#include <IGESData_IGESModel.hxx>

#include "exaNesting.h"

// Which groups, subfigures and assemblies stand in which ones in a parsed file.
exaNesting iges_nesting(const Handle(IGESData_IGESModel) & model);
