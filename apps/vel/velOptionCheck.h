#pragma once

#include <vector>

#include "velConsole.h"
#include "velDriver.h"

// Checks the options of a request before it runs; the engine would only warn of a value that does not validate. Each
// key or option name must belong to one of the formats, and the key must accept the value. Returns false and reports
// every error when one does not. Replaces the keys in `options` by the formats' spelling. `side` is "--in" or "--out".
// Warns of errors in the resource files of the formats.
bool vel_check_options(velDriver& driver, const std::vector<const vlnTranslatorInfo*>& formats, const char* side,
                       vlnTranslator::Resources& options, velConsole& console);
