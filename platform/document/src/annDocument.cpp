#include "annDocument.h"

#include "annPlacedVertices.h"

namespace {

void extend(std::optional<annBox>& box, annVector point) {
  if (!box) box = annBox{point, point};
  box->include(point);
}

void extend(std::optional<annBox>& box, const annVertices& vertices, const annTransform& placement) {
  const bool identity = placement.is_identity();
  for (const annVector& point : vertices.points) extend(box, identity ? point : placement.point(point));
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
  for (const annPlacedBody& placed : ann_placed_bodies(document)) {
    ++result.parts;
    const annBody& body = placed.node->body;
    std::optional<annBox> shape_box;
    if (body.shape) {
      const annShapeContent content = body.shape->content();
      result.solids += content.solids;
      result.faces += content.faces;
      shape_box = body.shape->box(placed.placement);
    } else {
      result.faces += body.mesh->face_count();
    }
    if (shape_box) {
      extend(result.box, shape_box->min);
      extend(result.box, shape_box->max);
    }
    if (!body.mesh) continue;
    result.triangles += body.mesh->triangle_count();
    const std::size_t known = seen.count();
    if (seen.number_of(*body.mesh->vertices, placed.placement) < known) continue;
    result.vertices += body.mesh->vertices->points.size();
    if (!shape_box) extend(result.box, *body.mesh->vertices, placed.placement);
  }
  return result;
}
