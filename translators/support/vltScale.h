#pragma once

#include <optional>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The unit and the factor for the numbers of a file, from the resources LENGTH_UNIT and SCALE.

// Reading a format that names no unit: gives the document the unit that LENGTH_UNIT says and returns the factor for
// every coordinate. Nothing, and a message, when SCALE is no positive number.
std::optional<double> vlt_input_scale(const velTableInstance& resources, annDocument& document, velabsOutput& output);

// Reading a format that names its unit: the factor SCALE alone, with the same refusal.
std::optional<double> vlt_scale(const velTableInstance& resources, velabsOutput& output);

// Writing a format that names no unit: the factor that turns the document's numbers into those to be written;
// conversion to LENGTH_UNIT needs a document that has a unit, and without one a message says that the numbers stay.
// `unit` receives that of the written numbers.
std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit);

// Writing a format whose file says, or whose standard fixes, that its numbers are in `unit`. The numbers of a document
// without a unit are taken to be in it already, and a warning says so.
std::optional<double> vlt_output_scale_to(velLengthUnit unit, const velTableInstance& resources,
                                          const annDocument& document, velabsOutput& output);
