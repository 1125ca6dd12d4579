#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Text as a terminal shows it.

// The text with its control characters written as \xNN, so that a file's name can neither break a line nor steer a
// terminal. All other bytes pass, also those that are no UTF-8.
std::string vel_printable(std::string_view text);

std::string vel_joined(const std::vector<std::string>& texts, std::string_view separator = ", ");

// The text, with a full stop behind it unless it ends in one or in a question mark.
std::string vel_sentence(std::string text);

// The text in lines of at most 80 characters as far as its words allow, each with `indent` blanks in front. Made
// printable.
std::string vel_wrapped(std::string_view text, std::size_t indent);

// Lines in columns, each as wide as its widest cell and two blanks apart; a line may be shorter than others. Nothing
// stands behind the last cell of a line. Cells are made printable.
std::string vel_columns(const std::vector<std::vector<std::string>>& lines);
