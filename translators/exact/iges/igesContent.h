#pragma once

#include <IGESCAFControl_Reader.hxx>

#include "velabsOutput.h"

// Says, of a file whose shapes were made, what the kernel leaves out of them.
void iges_tell_left_out(const IGESCAFControl_Reader& reader, velabsOutput& output);
