#pragma once

#include <optional>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The unit and the scale factor for the numbers of a file, from the resources LENGTH_UNIT, CONVERT_UNITS and SCALE. A
// number without a unit is a millimetre, in files and in documents.

// For reading a format without a unit: sets the document's unit to LENGTH_UNIT and returns the factor for all
// coordinates. Empty, with a message, when SCALE is not a positive number.
std::optional<double> vlt_input_scale(const velTableInstance& resources, annDocument& document, velabsOutput& output);

// For reading a format with a unit: the factor SCALE, with the same error.
std::optional<double> vlt_scale(const velTableInstance& resources, velabsOutput& output);

// The unit to declare in a file or page: LENGTH_UNIT, else the document's, which may be "unspecified".
velLengthUnit vlt_stated_unit(const velTableInstance& resources, const annDocument& document);

// For writing a format without a unit: the factor from the document's numbers to the file's. `unit` receives the unit
// of the file's numbers: LENGTH_UNIT, millimetre by default. If CONVERT_UNITS is off, the document's numbers are
// written unchanged, and a note reports a LENGTH_UNIT that is ignored.
std::optional<double> vlt_output_scale(const velTableInstance& resources, const annDocument& document,
                                       velabsOutput& output, velLengthUnit& unit);

// Reports the unit of the file's numbers, unless both this unit and the document's are millimetres or unknown.
void vlt_note_unit(const char* format, velLengthUnit unit, const annDocument& document, velabsOutput& output);

// For writing a format that declares `unit`, or whose standard defines it. A note is written when the document has no
// unit, so that its numbers count as millimetres.
std::optional<double> vlt_output_scale_to(velLengthUnit unit, const velTableInstance& resources,
                                          const annDocument& document, velabsOutput& output);
