#pragma once

#include <optional>
#include <string_view>

#include "velLengthUnit.h"

// The length units of 3MF and their names in files.

std::optional<velLengthUnit> threemf_unit(std::string_view text);

// Empty for a unit that 3MF does not have.
std::string_view threemf_unit_text(velLengthUnit unit);

// The unit in which a model is written: its own unit if 3MF has it, else inch for the small imperial units, foot for
// the large ones, metre for kilometres, and millimetre for a model without a unit.
velLengthUnit threemf_written_unit(velLengthUnit unit);
