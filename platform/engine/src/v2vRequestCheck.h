#pragma once

#include <vector>

#include "v2vTranslationElements.h"

// What speaks against a request before anything is opened: one message for each reason, with the file and what to do.
std::vector<utString> v2v_reasons_against(const v2vTranslationElements& elements);

// Why no translator was found for a file, and what to do.
utString v2v_reason_against_input(const utString& file);
