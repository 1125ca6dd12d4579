#pragma once

#include <optional>
#include <string_view>

#include "velLengthUnit.h"

// The length units that 3MF knows and how it spells them.

std::optional<velLengthUnit> threemf_unit(std::string_view text);

// Empty for a unit that 3MF does not know.
std::string_view threemf_unit_text(velLengthUnit unit);

// The one to write a model in whose unit is `unit`: itself where 3MF knows it, else inch for the small imperial units,
// foot for the large ones, metre for kilometres, and millimetre for a model without a unit.
velLengthUnit threemf_written_unit(velLengthUnit unit);
