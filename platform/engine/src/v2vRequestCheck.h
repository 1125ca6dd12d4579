#pragma once

#include <vector>

#include "v2vTranslationElements.h"

// Checks a request before any file is opened. Returns one message for each problem, with the file and what to do.
std::vector<utString> v2v_reasons_against(const v2vTranslationElements& elements);

// Why no translator was found for a file, and what to do.
utString v2v_reason_against_input(const utString& file);
