#pragma once

#include "apLanguage.h"

// What libvelplatform shows to other libraries. Everything else is compiled hidden.
#define VELPLATFORM_API __attribute__((visibility("default")))
