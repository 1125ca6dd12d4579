#include "vltPlacedMesh.h"

#include "vltFacets.h"
#include "vltScale.h"
#include "vltUp.h"

std::optional<std::vector<vltPlacedMesh>> vlt_placed_meshes(const annDocument& document,
                                                            const velTableInstance& resources,
                                                            const annTransform& whole, velabsOutput& output) {
  std::vector<vltPlacedMesh> result;
  vltFacets facets(document, resources, output);
  for (const annPlacedBody& placed : ann_placed_bodies(document)) {
    std::shared_ptr<const annMesh> mesh = facets.of(*placed.node);
    if (!mesh) return std::nullopt;
    const annTransform placement = whole.is_identity() ? placed.placement : whole * placed.placement;
    result.push_back({placed.node, std::move(mesh), placement, placed.colour});
  }
  if (!result.empty()) return result;
  output.message(velabsERROR, "the model holds no shape");
  return std::nullopt;
}

std::optional<vltWrittenMeshes> vlt_written_meshes(const annDocument& document, annUpAxis up,
                                                   const velTableInstance& resources, velabsOutput& output) {
  vltWrittenMeshes result;
  const std::optional<double> factor = vlt_output_scale(resources, document, output, result.unit);
  if (!factor) return std::nullopt;
  const std::optional<annTransform> turn = vlt_written_turn(up, resources, document, output);
  if (!turn) return std::nullopt;
  auto bodies = vlt_placed_meshes(document, resources, annTransform::scaling(*factor) * *turn, output);
  if (!bodies) return std::nullopt;
  result.bodies = std::move(*bodies);
  return result;
}
