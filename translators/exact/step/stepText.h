#pragma once

#include <StepData_StepWriter.hxx>
#include <optional>
#include <string>
#include <string_view>

#include "velabsOfStream.h"
#include "velabsOutput.h"

// Files are printable ASCII: other characters are spelled by their codes.

// The bytes of a file that has others in it, from programs that write their own encoding: those that are no UTF-8,
// which the kernel knows, are taken for Latin 1. Nothing when there are none.
std::optional<std::string> step_repaired(std::string_view bytes);

// Prints what the kernel wrote, which is in UTF-8 and breaks lines anywhere. False when the work is cancelled.
bool step_print(const StepData_StepWriter& written, velabsOfStream& stream, velabsOutput& output);
