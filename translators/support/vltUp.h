#pragma once

#include <optional>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The up axis of a file, from the resource UP_AXIS: "auto" is the rule of the format, which may be none; "y" and "z"
// are that axis; "keep" means that the model is never rotated.

// For reading: sets the document's up axis, to none for "keep". False, with a message, when UP_AXIS is invalid.
bool vlt_read_up(annUpAxis rule, const velTableInstance& resources, annDocument& document, velabsOutput& output);

// For writing: the placement of the whole model that makes the file's axis point up. A note is written when UP_AXIS
// names an axis but the document has none and is not rotated. Empty, with a message, when UP_AXIS is invalid.
std::optional<annTransform> vlt_written_turn(annUpAxis rule, const velTableInstance& resources,
                                             const annDocument& document, velabsOutput& output);
