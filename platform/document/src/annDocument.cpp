#include "annDocument.h"

#include <algorithm>
#include <array>
#include <span>

#include "annPlacedVertices.h"

namespace {

void extend(std::optional<annBox>& box, annVector point) {
  if (!box) box = annBox{point, point};
  box->include(point);
}

// Four points at a time, so that the comparisons are vectorised and do not wait for each other.
annBox box_around(std::span<const annVector> points) {
  constexpr std::size_t points_at_once = 4;
  constexpr std::size_t lanes = 3 * points_at_once;
  static_assert(sizeof(annVector) == 3 * sizeof(double));
  std::array<double, lanes> low, high;
  for (std::size_t lane = 0; lane < lanes; ++lane) {
    const annVector& p = points.front();
    low[lane] = high[lane] = lane % 3 == 0 ? p.x : lane % 3 == 1 ? p.y : p.z;
  }
  for (; points.size() >= points_at_once; points = points.subspan(points_at_once)) {
    const auto* const numbers = reinterpret_cast<const double*>(points.data());
    for (std::size_t lane = 0; lane < lanes; ++lane) low[lane] = std::min(low[lane], numbers[lane]);
    for (std::size_t lane = 0; lane < lanes; ++lane) high[lane] = std::max(high[lane], numbers[lane]);
  }
  annBox box{{low[0], low[1], low[2]}, {high[0], high[1], high[2]}};
  for (std::size_t lane = 3; lane < lanes; lane += 3) {
    box.include({low[lane], low[lane + 1], low[lane + 2]});
    box.include({high[lane], high[lane + 1], high[lane + 2]});
  }
  for (const annVector& point : points) box.include(point);
  return box;
}

void extend(std::optional<annBox>& box, const annVertices& vertices, const annTransform& placement) {
  if (vertices.points.empty()) return;
  if (!placement.is_identity()) {
    for (const annVector& point : vertices.points) extend(box, placement.point(point));
    return;
  }
  const annBox around = box_around(vertices.points);
  extend(box, around.min);
  extend(box, around.max);
}

}  // namespace

void annDocument::scale(double factor) {
  if (factor == 1) return;
  for (const auto& node : root.children) node->transform = annTransform::scaling(factor) * node->transform;
}

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

annStatistics ann_statistics(const annDocument& document, bool with_box) {
  return ann_statistics(ann_placed_bodies(document), with_box);
}

annStatistics ann_statistics(const std::vector<annPlacedBody>& bodies, bool with_box) {
  annStatistics result;
  annPlacedVertices seen;
  for (const annPlacedBody& placed : bodies) {
    ++result.parts;
    const annBody& body = placed.node->body;
    std::optional<annBox> shape_box;
    if (body.shape) {
      const annShapeContent content = body.shape->content();
      result.solids += content.solids;
      result.faces += content.faces;
      if (with_box) shape_box = body.shape->box(placed.placement);
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
    if (with_box && !shape_box) extend(result.box, *body.mesh->vertices, placed.placement);
  }
  return result;
}
