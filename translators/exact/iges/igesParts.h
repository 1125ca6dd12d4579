#pragma once

#include <vector>

#include "exaProducts.h"

// The parts of a tree side by side: one for each place that a part takes, its shape in that place. What the kernel
// throws passes through.
std::vector<exaProduct> iges_parts(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top);

// Each of them once, where it is.
std::vector<exaProduct::Use> iges_uses(const std::vector<exaProduct>& parts);
