#pragma once

#include "apRegularFile.h"

// Why the system's loader must not be given this library: it maps what the program headers name, and a page past the
// end of a file that was cut short ends the process when it is touched. Null when the file holds all of it, and for a
// file that is no ELF file of this machine, which the loader refuses by itself.
utString ap_missing_part_of_library(const apRegularFile& file);
