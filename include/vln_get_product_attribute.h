#pragma once

#include "utString.h"
#include "vlnExport.h"

// The attribute without its spaces; tabs and all other characters are kept.
VLN_API utString vln_get_product_attribute(const utString& attribute);
