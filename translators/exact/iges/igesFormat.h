#pragma once

#include "vltFormat.h"

extern const vltFormat iges_format;
