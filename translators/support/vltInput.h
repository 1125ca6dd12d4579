#pragma once

#include <memory>

#include "apMappedFile.h"
#include "velabsOutput.h"

// Maps an input file; null, with a message, when it cannot be opened or is empty.
std::unique_ptr<apMappedFile> vlt_open(const utString& file, velabsOutput& output);

// False, with a message that suggests what to do, for text in an encoding of two bytes per character.
bool vlt_is_byte_text(std::string_view text, velabsOutput& output);

// Reports an error with its line: "line 7: ..." . Always false, so a function can return the result.
bool vlt_fail_at_line(velabsOutput& output, std::size_t line, std::string_view reason);
