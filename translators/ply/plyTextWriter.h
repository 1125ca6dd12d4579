#pragma once

#include "plyContent.h"

// Writes the ASCII form. `digits` is how many significant ones coordinates get, 0 as many as it takes to read back the
// same numbers.
velabsResult ply_write_text(const plyContent& content, int digits, velabsOfStream& stream, velabsOutput& output);
