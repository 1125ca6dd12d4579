#include "igesParts.h"

#include <algorithm>

#include "exaPlacement.h"

std::vector<exaProduct> iges_parts(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top) {
  std::vector<exaProduct> parts;
  std::vector<exaProduct::Use> open(top.rbegin(), top.rend());
  while (!open.empty()) {
    const exaProduct::Use use = open.back();
    open.pop_back();
    const exaProduct& product = products[use.product];
    if (!product.shape.IsNull()) {
      parts.push_back(product);
      parts.back().shape = exa_changed(product.shape, exa_transform(use.location));
      continue;
    }
    for (auto below = product.uses.rbegin(); below != product.uses.rend(); ++below) {
      open.push_back({below->product, use.location * below->location});
    }
  }
  return parts;
}

std::vector<exaProduct::Use> iges_uses(const std::vector<exaProduct>& parts) {
  std::vector<exaProduct::Use> uses;
  for (std::size_t i = 0; i < parts.size(); ++i) uses.push_back({i, gp_Trsf()});
  return uses;
}
