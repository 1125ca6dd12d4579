#pragma once

#include "vltFormat.h"

extern const vltFormat step_format;
