#pragma once

#include <optional>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The unit and the factor for numbers of a format that names no unit, from the resources LENGTH_UNIT and SCALE.

// Reading: gives the document the unit that LENGTH_UNIT says and returns the factor for every coordinate. Nothing, and
// a message, when SCALE is no positive number.
std::optional<double> vlt_input_scale(const velTableInstance& resources, annDocument& document, velabsOutput& output);

// Writing: the factor that turns the document's numbers into those to be written; conversion to LENGTH_UNIT needs a
// document that has a unit, and without one a message says that the numbers stay. `unit` receives that of the written
// numbers.
std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit);
