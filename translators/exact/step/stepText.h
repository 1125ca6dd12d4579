#pragma once

#include <StepData_StepWriter.hxx>
#include <optional>
#include <string>
#include <string_view>

#include "velabsOfStream.h"
#include "velabsOutput.h"

// Files are printable ASCII: other characters are encoded by their codes.

// Encodes the non-ASCII bytes of a file, which some programs write directly. Bytes that are not UTF-8, which the
// kernel can read, are taken as Latin-1. Empty when there are none.
std::optional<std::string> step_repaired(std::string_view bytes);

// Writes the kernel's output to the stream. The input is UTF-8 with line breaks anywhere. False when cancelled.
bool step_print(const StepData_StepWriter& written, velabsOfStream& stream, velabsOutput& output);
