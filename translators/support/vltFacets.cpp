#include "vltFacets.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <numbers>
#include <thread>
#include <vector>

vltFacets::vltFacets(const annDocument& document, const velTableInstance& resources, velabsOutput& output)
    : document_(document),
      tolerance_{std::max(resources.value<double>("CHORD_TOLERANCE", 0), 0.0),
                 std::max(resources.value<double>("ANGLE_TOLERANCE", 0), 0.0) * (std::numbers::pi / 180)},
      output_(output) {}

std::shared_ptr<const annMesh> vltFacets::of(const annNode& node) {
  if (node.body.mesh) return node.body.mesh;
  if (made_.empty()) make_all();
  Facets& facets = made_[node.body.shape.get()];
  if (facets.told || facets.status.ok() || output_.cancelled()) return facets.mesh;
  facets.told = true;
  const utString what = facets.mesh ? "not all facets for the shape of \"" : "no facets for the shape of \"";
  output_.message(facets.mesh ? velabsWARNING : velabsERROR, what + node.name + "\": " + facets.status.failure());
  return facets.mesh;
}

void vltFacets::make_all() {
  std::vector<std::pair<const annExactShape*, Facets*>> shapes;
  for (const annPlacedBody& placed : ann_placed_bodies(document_)) {
    const annBody& body = placed.node->body;
    if (body.mesh) continue;
    const auto [known, is_new] = made_.try_emplace(body.shape.get());
    if (is_new) shapes.emplace_back(known->first, &known->second);
  }

  std::atomic<std::size_t> next{0}, done{0};
  auto work = [&] {
    for (std::size_t i; (i = next.fetch_add(1)) < shapes.size() && !output_.cancelled();) {
      auto& [shape, facets] = shapes[i];
      try {
        facets->mesh = shape->facets(tolerance_, facets->status);
      } catch (const std::exception& exception) {
        facets->status.set_failure(exception.what());
      }
      // The other half of the progress is the writing's.
      output_.progress(static_cast<int>(50 * ++done / shapes.size()));
    }
  };
  std::vector<std::jthread> threads;
  const std::size_t workers = std::min<std::size_t>(shapes.size(), std::thread::hardware_concurrency());
  try {
    for (std::size_t i = 1; i < workers; ++i) threads.emplace_back(work);
  } catch (const std::exception&) {
    // With fewer threads it takes longer.
  }
  work();
}
