#pragma once

#include "vltFormat.h"

extern const vltFormat off_format;
