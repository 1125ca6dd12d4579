#pragma once

#include "annDocument.h"

// Checks a document that a translator created, so that later steps may rely on it. Returns null if it is consistent,
// else the reason as human-readable text.
utString v2v_fault_of(const annDocument& document);

// True for a document without vertices, faces and exact shapes. A file that gives one is valid, but there is no content
// to translate.
bool v2v_is_empty(const annDocument& document);
