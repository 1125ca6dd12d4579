#pragma once

#include <cstddef>

// How many bytes the program and its libraries have allocated with `new` so far.
std::size_t allocated_bytes();
