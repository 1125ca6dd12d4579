#pragma once

#include <STEPControl_Reader.hxx>

#include "utString.h"
#include "velabsOutput.h"

// Checks the files that a parsed file refers to, directly or indirectly, before the kernel follows them. Reports every
// missing file. False, with a message, when a file is outside the directory of `file` or the references form a cycle;
// nothing may be read then.
bool step_settle_references(STEPControl_Reader& reader, const utString& file, velabsOutput& output);
