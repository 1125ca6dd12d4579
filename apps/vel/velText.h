#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Text for terminals.

// Escapes control characters and characters that change the direction of text: each of their bytes becomes \xNN. So a
// file name can neither break a line nor control the terminal. All other bytes are unchanged, even invalid UTF-8.
std::string vel_printable(std::string_view text);

std::string vel_joined(const std::vector<std::string>& texts, std::string_view separator = ", ");

// The text, with a full stop appended unless it ends in a full stop or a question mark.
std::string vel_sentence(std::string text);

// Wraps the text at blanks into lines of at most 80 characters, including `indent` leading blanks. A longer word gets
// its own line. Control characters are escaped.
std::string vel_wrapped(std::string_view text, std::size_t indent);

// Formats a table. Each column is as wide as its widest cell, with two blanks between columns. A line may have fewer
// cells than others. Lines have no trailing blanks. Control characters are escaped.
std::string vel_columns(const std::vector<std::vector<std::string>>& lines);
