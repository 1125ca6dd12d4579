#pragma once

#include "velConsole.h"
#include "velExitCode.h"

// `vel cache`: manages the file with the descriptions of the translators, which saves opening their libraries at each
// start. Each action reports its result.

// Opens every library and writes the user's file from their descriptions. A failure keeps the old file.
velExitCode vel_cache_refresh(velConsole& console);
velExitCode vel_cache_show(velConsole& console);
// Removes the user's file.
velExitCode vel_cache_clear(velConsole& console);
