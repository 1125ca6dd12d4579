#pragma once

#include <vector>

#include "velConsole.h"
#include "velDriver.h"

// Checks the options given for a request before it runs; the engine would only warn of a value that does not validate.
// Every key, or name of an option, must belong to one of the formats and its value to the key. False, and every
// fault was said, when one does not; else `options` hold the keys in the formats' own spelling. `side` is "--in" or
// "--out". Faults in the formats' resource files are warned of.
bool vel_check_options(velDriver& driver, const std::vector<const vlnTranslatorInfo*>& formats, const char* side,
                       vlnTranslator::Resources& options, velConsole& console);
