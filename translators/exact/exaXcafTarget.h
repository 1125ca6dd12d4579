#pragma once

#include <TDocStd_Document.hxx>

#include "annDocument.h"
#include "velabsOutput.h"

// The kernel's document for a file whose unit of length is so many millimetres long; 0 or less when it names none. The
// neutral one gets the unit too; one that is not known here becomes millimetres, and that is said.
Handle(TDocStd_Document) exa_xcaf_target(double millimetres, annDocument& document, velabsOutput& output);
