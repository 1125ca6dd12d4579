#pragma once

#include <string>
#include <string_view>

#include "exaExport.h"

// Looks whether bytes in the kernel's text or binary form hold together: as many values as they say, and references to
// what is there. The kernel itself takes counts and references as they come. What is wrong with them and where, in one
// line; empty when nothing is.
VELEXACT_API std::string exa_brep_fault(std::string_view bytes);

// True for the binary form.
bool exa_is_binary_brep(std::string_view bytes);
