#pragma once

#include <TDocStd_Document.hxx>

#include "exaProducts.h"

// The kernel's document of products, for its writers of STEP and IGES. `unit` is the length of the numbers' unit in
// millimetres. Where products do not stand at the origin they get an assembly around them, which has the name. What the
// kernel throws passes through.
Handle(TDocStd_Document)
    exa_xcaf_document(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top, double unit,
                      bool with_colours, const utString& name);
