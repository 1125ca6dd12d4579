#pragma once

#include "apRegularFile.h"

// Checks whether a library file is truncated, which the system's loader does not: it maps what the program headers
// declare, and access to a page after the end of the file ends the process. Returns the reason if the file is
// truncated. Returns null if it is complete or not an ELF file for this machine; the loader rejects the latter.
utString ap_missing_part_of_library(const apRegularFile& file);
