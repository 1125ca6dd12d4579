#pragma once

#include <IGESCAFControl_Reader.hxx>

#include "velabsOutput.h"

// Says, of a file whose shapes were made, what the kernel leaves out of them and what it shows although the file hides
// it.
void iges_tell_left_out(const IGESCAFControl_Reader& reader, velabsOutput& output);
