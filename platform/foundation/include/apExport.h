#pragma once

#include "apLanguage.h"

// Exports a symbol of libvelplatform. Everything else has hidden visibility.
#define VELPLATFORM_API __attribute__((visibility("default")))
