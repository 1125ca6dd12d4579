#pragma once

#include <TDocStd_Document.hxx>

#include "annDocument.h"
#include "velabsOutput.h"

// Creates the kernel's document for a file with this length unit in millimetres; 0 or less when the file declares
// none. Also sets the unit of the neutral document. An unknown unit is replaced by millimetres and reported.
Handle(TDocStd_Document) exa_xcaf_target(double millimetres, annDocument& document, velabsOutput& output);
