#pragma once

#include "vltFormat.h"

extern const vltFormat ply_format;
