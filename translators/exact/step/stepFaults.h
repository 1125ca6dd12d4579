#pragma once

#include <STEPControl_Reader.hxx>
#include <string>
#include <string_view>

// Why a parsed file must not be converted, as the end of a sentence that begins with "it"; empty when it may. Call it
// for the file itself and for each file that it refers to. Entity numbers are checked before parsing: see
// stepNumbers.h.
std::string step_fault(const STEPControl_Reader& reader, std::string_view bytes);
