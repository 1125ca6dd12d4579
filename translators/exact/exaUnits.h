#pragma once

#include "exaExport.h"
#include "velLengthUnit.h"

// The unit that is so many millimetres long; "unspecified" when the document knows none.
VELEXACT_API velLengthUnit exa_unit(double millimetres);

// How long it is; 0 for "unspecified".
VELEXACT_API double exa_millimetres(velLengthUnit unit);
