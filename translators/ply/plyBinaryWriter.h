#pragma once

#include "plyContent.h"

// Writes the little-endian form.
velabsResult ply_write_binary(const plyContent& content, velabsOfStream& stream, velabsOutput& output);
