#pragma once

#include "vltFormat.h"

extern const vltFormat brep_format;
