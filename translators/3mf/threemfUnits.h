#pragma once

#include <optional>
#include <string_view>

#include "velLengthUnit.h"

// The length units of 3MF and their names in files.

std::optional<velLengthUnit> threemf_unit(std::string_view text);

// Empty for a unit that 3MF does not have.
std::string_view threemf_unit_text(velLengthUnit unit);

// The unit in which a model is written: its unit, if 3MF has it. Other units are replaced: small imperial units by
// inch, large ones by foot, kilometre by metre, and no unit by millimetre.
velLengthUnit threemf_written_unit(velLengthUnit unit);
