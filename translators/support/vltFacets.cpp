#include "vltFacets.h"

#include <numbers>

namespace {

constexpr double default_chord_in_metres = 1e-4;
constexpr double default_chord_without_unit = 0.1;
constexpr double default_angle = 0.35;  // about 20 degrees

annTolerance tolerance(const annDocument& document, const velTableInstance& resources) {
  annTolerance result{resources.value<double>("CHORD_TOLERANCE", 0),
                      resources.value<double>("ANGLE_TOLERANCE", 0) * (std::numbers::pi / 180)};
  const double metres = vel_metres(document.unit);
  if (!(result.chord > 0)) result.chord = metres > 0 ? default_chord_in_metres / metres : default_chord_without_unit;
  if (!(result.angle > 0)) result.angle = default_angle;
  return result;
}

}  // namespace

vltFacets::vltFacets(const annDocument& document, const velTableInstance& resources, velabsOutput& output)
    : tolerance_(tolerance(document, resources)), output_(output) {}

std::shared_ptr<const annMesh> vltFacets::of(const annNode& node) {
  if (node.body.mesh) return node.body.mesh;
  const annExactShape* shape = node.body.shape.get();
  if (auto known = made_.find(shape); known != made_.end()) return known->second;
  apStatus status;
  std::shared_ptr<const annMesh> mesh = shape->facets(tolerance_, status);
  if (!mesh) {
    output_.message(velabsERROR, utString("no facets for the shape of \"") + node.name + "\": " + status.failure());
    return nullptr;
  }
  return made_[shape] = std::move(mesh);
}
