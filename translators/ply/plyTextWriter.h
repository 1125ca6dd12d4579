#pragma once

#include "plyContent.h"

// Writes the ASCII form. `digits` is the number of significant digits of coordinates; 0 for as many as needed to read
// back the same numbers.
velabsResult ply_write_text(const plyContent& content, int digits, velabsOfStream& stream, velabsOutput& output);
