#include "igesParts.h"

#include <string>

#include "exaPlacement.h"
#include "exaWriting.h"

namespace {

// Maximum number of faces in copies beyond the first; the kernel needs about 17 kB for each.
constexpr std::size_t most_copied_faces = 300'000;

// The number of occurrences of each product in the tree.
std::vector<std::size_t> occurrences(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top) {
  std::vector<std::size_t> counts(products.size(), 0);
  for (const exaProduct::Use& use : top) ++counts[use.product];
  for (std::size_t i = products.size(); i-- > 0;) {
    for (const exaProduct::Use& use : products[i].uses) counts[use.product] += counts[i];
  }
  return counts;
}

bool has_room(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top,
              const velTableInstance& resources, velabsOutput& output) {
  const std::vector<std::size_t> counts = occurrences(products, top);
  std::size_t planar = 0, copied = 0, places = 0;
  for (std::size_t i = 0; i < products.size(); ++i) {
    const exaProduct& product = products[i];
    if (product.shape.IsNull() || counts[i] == 0) continue;
    places += counts[i];
    planar += counts[i] * product.planar_faces;
    if (product.planar_faces == 0) copied += (counts[i] - 1) * exa_face_count({product});
  }
  if (!exa_allows_planar_faces(planar, resources, output)) return false;
  if (copied <= most_copied_faces) return true;
  output.message(velabsERROR,
                 utString("IGES holds a part once for each of its places: for " + std::to_string(places) + " places " +
                          std::to_string(copied) + " faces would be copied, more than the " +
                          std::to_string(most_copied_faces) + " that there is room for; write STEP or BREP"));
  return false;
}

}  // namespace

bool iges_make_parts(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top,
                     const velTableInstance& resources, velabsOutput& output, std::vector<exaProduct>& parts) {
  if (!has_room(products, top, resources, output)) return false;
  std::vector<exaProduct::Use> open(top.rbegin(), top.rend());
  while (!open.empty() && !output.cancelled()) {
    const exaProduct::Use use = open.back();
    open.pop_back();
    const exaProduct& product = products[use.product];
    if (!product.shape.IsNull()) {
      parts.push_back(product);
      if (!use.instance_name.empty()) parts.back().name = use.instance_name;
      parts.back().shape = exa_changed(product.shape, exa_transform(use.location));
      continue;
    }
    for (auto below = product.uses.rbegin(); below != product.uses.rend(); ++below) {
      const utString& name = below->is_own_shape ? use.instance_name : below->instance_name;
      open.push_back({below->product, use.location * below->location, name});
    }
  }
  return !output.cancelled();
}

std::vector<exaProduct::Use> iges_uses(const std::vector<exaProduct>& parts) {
  std::vector<exaProduct::Use> uses;
  for (std::size_t i = 0; i < parts.size(); ++i) uses.push_back({i, gp_Trsf()});
  return uses;
}
