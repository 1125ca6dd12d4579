#pragma once

#include <vector>

#include "exaProducts.h"

// Flattens a tree to a list of parts: one for each instance, with its name and its shape in place. False, with a
// message before the first part is made, when they exceed FACET_LIMIT or the memory. False too when the work is
// cancelled. Exceptions of the kernel are passed on.
bool iges_make_parts(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top,
                     const velTableInstance& resources, velabsOutput& output, std::vector<exaProduct>& parts);

// One instance of each part, at its own place.
std::vector<exaProduct::Use> iges_uses(const std::vector<exaProduct>& parts);
