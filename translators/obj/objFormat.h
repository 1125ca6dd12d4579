#pragma once

#include "vltFormat.h"

extern const vltFormat obj_format;
