#pragma once

#include <IGESCAFControl_Reader.hxx>

#include "exaHidden.h"

// The bodies of a file whose shapes were made that are blanked themselves. Curves and surfaces that bodies are made of
// are often blanked too and hide nothing.
exaHidden iges_hidden(const IGESCAFControl_Reader& reader);
