#include "annDocument.h"

#include <algorithm>

#include "annPlacedVertices.h"

namespace {

void extend(std::optional<annBox>& box, const annVertices& vertices, const annTransform& placement) {
  const bool identity = placement.is_identity();
  for (const annVector& point : vertices.points) {
    const annVector p = identity ? point : placement.point(point);
    if (!box) box = annBox{p, p};
    box->min = {std::min(box->min.x, p.x), std::min(box->min.y, p.y), std::min(box->min.z, p.z)};
    box->max = {std::max(box->max.x, p.x), std::max(box->max.y, p.y), std::max(box->max.z, p.z)};
  }
}

}  // namespace

std::vector<annPlacedBody> ann_placed_bodies(const annDocument& document) {
  std::vector<annPlacedBody> bodies;
  std::vector<annPlacedBody> open{{&document.root, document.root.transform, document.root.colour}};
  while (!open.empty()) {
    annPlacedBody current = open.back();
    open.pop_back();
    const auto& children = current.node->children;
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      const annNode& node = **child;
      open.push_back({&node, current.placement * node.transform, node.colour ? node.colour : current.colour});
    }
    if (!current.node->body.empty()) bodies.push_back(std::move(current));
  }
  return bodies;
}

annStatistics ann_statistics(const annDocument& document) {
  annStatistics result;
  annPlacedVertices seen;
  for (const annPlacedBody& body : ann_placed_bodies(document)) {
    ++result.parts;
    const annMesh* mesh = body.node->body.mesh.get();
    if (!mesh) continue;
    result.faces += mesh->face_count();
    result.triangles += mesh->triangle_count();
    const std::size_t known = seen.count();
    if (seen.number_of(*mesh->vertices, body.placement) < known) continue;
    result.vertices += mesh->vertices->points.size();
    extend(result.box, *mesh->vertices, body.placement);
  }
  return result;
}
