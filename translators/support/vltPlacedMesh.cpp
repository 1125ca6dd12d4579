#include "vltPlacedMesh.h"

#include <algorithm>

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

bool vlt_has_faces(const std::vector<vltPlacedMesh>& bodies, const char* format, velabsOutput& output) {
  auto has_faces = [](const vltPlacedMesh& body) { return body.mesh->face_count() > 0; };
  if (std::any_of(bodies.begin(), bodies.end(), has_faces)) return true;
  vlt_report_no_faces(format, output);
  return false;
}

void vlt_report_no_faces(const char* format, velabsOutput& output) {
  output.message(velabsERROR, utString("the model holds no faces, only vertices, and ") + format +
                                  " holds faces only; PLY, OBJ and OFF hold vertices too");
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
