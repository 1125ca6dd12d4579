#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "vltOnce.h"

// The numbers of a statement, which people and programs write in many ways. A word that begins with a number but goes
// on oddly ("3.1+e2") counts as that number, with a warning.

// Fills `numbers` from the front with those up to the end of the line or a comment, and counts them; more than fit are
// passed over with a warning. False when a word is no number, with that word in `wrong`.
bool obj_take_numbers(std::string_view rest, std::span<double> numbers, std::size_t& count, std::size_t line,
                      vltOnce& findings, std::string_view& wrong);

// Takes a whole number away from the front of `text`. False when none stands there or it does not fit.
bool obj_take_index(std::string_view& text, long long& index);
