#pragma once

#include <STEPControl_Reader.hxx>
#include <string>
#include <string_view>

// Why nothing may be made of a parsed file, as the end of a sentence that begins with "it"; nothing when all is well.
// It holds for the file itself and for each one that it refers to. The numbers of its entities are looked at before
// it is parsed: see stepNumbers.h.
std::string step_fault(const STEPControl_Reader& reader, std::string_view bytes);
