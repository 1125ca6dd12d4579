#pragma once

#include "annDocument.h"

// Looks a document over that a translator made, so that what comes behind may rely on it. Null when it holds together;
// else why not, for people.
utString v2v_fault_of(const annDocument& document);
