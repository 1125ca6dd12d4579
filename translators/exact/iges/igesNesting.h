#pragma once

#include <IGESData_IGESModel.hxx>

#include "exaNesting.h"

// Which groups, subfigures and assemblies of a parsed file contain which others.
exaNesting iges_nesting(const Handle(IGESData_IGESModel) & model);
