#pragma once

#include <optional>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The axis that points up in a file, from the resource UP_AXIS: "auto" is the rule of the format, which may be none;
// "y" and "z" are that axis; "keep" means that the model is never turned.

// Reading: sets the document's axis. With "keep" it has none. False, and a message, when UP_AXIS has another value.
bool vlt_read_up(annUpAxis rule, const velTableInstance& resources, annDocument& document, velabsOutput& output);

// Writing: the placement of the whole model that makes the file's axis point up. A note says when UP_AXIS names an axis
// and the document has none, so that it is not turned. Nothing, and a message, when UP_AXIS has another value.
std::optional<annTransform> vlt_written_turn(annUpAxis rule, const velTableInstance& resources,
                                             const annDocument& document, velabsOutput& output);
