#pragma once

#include <IGESCAFControl_Reader.hxx>

#include "velabsOutput.h"

// Reports what the kernel skips in a file, after its shapes were made.
void iges_tell_left_out(const IGESCAFControl_Reader& reader, velabsOutput& output);
