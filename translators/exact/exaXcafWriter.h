#pragma once

#include <TDocStd_Document.hxx>

#include "exaProducts.h"

struct exaXcafNames {
  utString whole;    // of the assembly that gets made around products that do not stand at the origin
  utString unnamed;  // of products without a name; null leaves them so
};

// The kernel's document of products, for its writers of STEP and IGES. `unit` is the length of the numbers' unit in
// millimetres. What the kernel throws passes through.
Handle(TDocStd_Document)
    exa_xcaf_document(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top, double unit,
                      bool with_colours, const exaXcafNames& names);
