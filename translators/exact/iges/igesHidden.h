#pragma once

#include <IGESCAFControl_Reader.hxx>

#include "exaHidden.h"

// The bodies of a file that are blanked themselves, after its shapes were made. Curves and surfaces that bodies are
// made of are often blanked too, which does not hide the body.
exaHidden iges_hidden(const IGESCAFControl_Reader& reader);
