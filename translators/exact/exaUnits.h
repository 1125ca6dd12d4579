#pragma once

#include "exaExport.h"
#include "velLengthUnit.h"

// The unit that is this many millimetres long; "unspecified" when there is no such unit.
VELEXACT_API velLengthUnit exa_unit(double millimetres);

// The length of the unit in millimetres; 0 for "unspecified".
VELEXACT_API double exa_millimetres(velLengthUnit unit);
