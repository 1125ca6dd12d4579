#pragma once

#include "utString.h"
#include "vlnExport.h"

// The attribute without its blanks; tabs and everything else stay.
VLN_API utString vln_get_product_attribute(const utString& attribute);
