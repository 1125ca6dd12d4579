#pragma once

#include "velConsole.h"
#include "velExitCode.h"

// `vel cache`: the file from which a start knows the translators without opening their libraries. Each action says what
// it did.

// Writes the user's file anew from what the libraries say of themselves; a failure leaves the old one.
velExitCode vel_cache_refresh(velConsole& console);
velExitCode vel_cache_show(velConsole& console);
// Removes the user's file.
velExitCode vel_cache_clear(velConsole& console);
