#pragma once

#include "apString.h"
#include "vlnExport.h"

// The extension of translator and service libraries, without its dot: "dll".
VLN_API apString vln_shared_library_extension();
