#pragma once

#include "apLanguage.h"

// What libvelbase shows to its users. Everything else is compiled hidden.
#define VLN_API __attribute__((visibility("default")))
