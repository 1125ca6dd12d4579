#pragma once

#include "annDocument.h"

// Looks a document over that a translator made, so that what comes behind may rely on it. Null when it holds together;
// else why not, for people.
utString v2v_fault_of(const annDocument& document);

// True for a document without any vertex, face or exact shape. A file that gives one is valid, but nothing can be
// translated from it.
bool v2v_is_empty(const annDocument& document);
