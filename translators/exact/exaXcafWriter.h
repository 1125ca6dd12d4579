#pragma once

#include <TDocStd_Document.hxx>

#include "exaProducts.h"

struct exaXcafNames {
  utString whole;    // name of the assembly that is added around products that are not at the origin
  utString unnamed;  // for products without a name; null leaves them unnamed
};

// Makes the kernel's document of products, for its STEP and IGES writers. `unit` is the length unit of the numbers, in
// millimetres. A product that needs no assembly around it takes the name of its instance; a note reports its own name
// when that is lost. Exceptions of the kernel are passed on.
Handle(TDocStd_Document)
    exa_xcaf_document(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top, double unit,
                      bool with_colours, const exaXcafNames& names, velabsOutput& output);
