#pragma once

#include <string>
#include <string_view>

#include "exaExport.h"

// Checks that bytes in the kernel's text or binary form are consistent: the declared counts fit the data, and all
// references exist. The kernel does not check either. Returns the error and its position in one line; empty when the
// bytes are consistent.
VELEXACT_API std::string exa_brep_fault(std::string_view bytes);

bool exa_is_binary_brep(std::string_view bytes);
