#pragma once

#include <STEPControl_Reader.hxx>

#include "utString.h"
#include "velabsOutput.h"

// Looks at the files that a parsed one refers to, and at those that these refer to, before the kernel follows them:
// every one that is missing is named. False, and a message, when one lies outside the directory of `file` or would lead
// the kernel in circles; nothing may then be read.
bool step_settle_references(STEPControl_Reader& reader, const utString& file, velabsOutput& output);
