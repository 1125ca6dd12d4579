#pragma once

#include <memory>

#include "apMappedFile.h"
#include "velabsOutput.h"

// The bytes of an input file; null, and a message, when it cannot be opened or is empty.
std::unique_ptr<apMappedFile> vlt_open(const utString& file, velabsOutput& output);

// False, and a message that says what to do, for text in an encoding with two bytes for each character.
bool vlt_is_byte_text(std::string_view text, velabsOutput& output);

// Says an error of a place: "line 7: ..." . Returns false, so that it can end a function that tells success.
bool vlt_fail_at_line(velabsOutput& output, std::size_t line, std::string_view reason);
