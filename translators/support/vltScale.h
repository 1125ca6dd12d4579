#pragma once

#include <optional>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The unit and the factor for the numbers of a file, from the resources LENGTH_UNIT, CONVERT_UNITS and SCALE. A number
// without a unit is a millimetre, in files and in documents.

// Reading a format that states no unit: gives the document the unit LENGTH_UNIT and returns the factor for every
// coordinate. Nothing, and a message, when SCALE is no positive number.
std::optional<double> vlt_input_scale(const velTableInstance& resources, annDocument& document, velabsOutput& output);

// Reading a format that states its unit: the factor SCALE alone, with the same error.
std::optional<double> vlt_scale(const velTableInstance& resources, velabsOutput& output);

// The unit that a file or a page states: LENGTH_UNIT, else the document's, which may be "unspecified".
velLengthUnit vlt_stated_unit(const velTableInstance& resources, const annDocument& document);

// Writing a format that states no unit: the factor that converts the document's numbers to those of the file, and the
// unit of the latter: LENGTH_UNIT, millimetre by default. Where CONVERT_UNITS is off, the document's own numbers are
// written.
std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit);

// A note when a reader of such a file must be given the unit of its numbers, and when they are not the document's own.
void vlt_note_unit(const char* format, velLengthUnit unit, const annDocument& document, velabsOutput& output);

// Writing a format whose file states, or whose standard fixes, that its numbers are in `unit`. A note says when the
// document has no unit, so that its numbers count as millimetres.
std::optional<double> vlt_output_scale_to(velLengthUnit unit, const velTableInstance& resources,
                                          const annDocument& document, velabsOutput& output);
