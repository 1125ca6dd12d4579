#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "vltOnce.h"

// Parsing of the numbers of a statement. A word that starts with a number but has other characters after it ("3.1+e2")
// is read as that number, with a warning.

// Reads the numbers up to the end of the line or a comment into `numbers`, and counts them. Numbers that do not fit
// are skipped with a warning. False when a word is not a number, with that word in `wrong`.
bool obj_take_numbers(std::string_view rest, std::span<double> numbers, std::size_t& count, std::size_t line,
                      vltOnce& findings, std::string_view& wrong);

// Removes an integer from the start of `text`. False when there is none or it is out of range.
bool obj_take_index(std::string_view& text, long long& index);
