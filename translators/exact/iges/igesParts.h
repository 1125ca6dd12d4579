#pragma once

#include <vector>

#include "exaProducts.h"

// The parts of a tree side by side: one for each place that a part takes, its shape in that place. False when they are
// more than FACET_LIMIT or the memory allow, which is said before the first one is made, or when the work is cancelled.
// What the kernel throws passes through.
bool iges_make_parts(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top,
                     const velTableInstance& resources, velabsOutput& output, std::vector<exaProduct>& parts);

// Each of them once, where it is.
std::vector<exaProduct::Use> iges_uses(const std::vector<exaProduct>& parts);
