#pragma once

#include "apLanguage.h"

// Exports a symbol of libvelbase. Everything else has hidden visibility.
#define VLN_API __attribute__((visibility("default")))
