#pragma once

#include "vltFormat.h"

extern const vltFormat hpf_format;
