#include "viewScene.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "vltFacets.h"
#include "vltNames.h"

namespace {

// A node to visit.
struct Waiting {
  const annNode* node;
  std::uint32_t parent;
  annTransform placement;
  std::optional<annColour> colour;
};

bool is_finite(const annTransform& placement) {
  return std::all_of(placement.m.begin(), placement.m.end(), [](double value) { return std::isfinite(value); });
}

class Collector {
 public:
  Collector(const annDocument& document, const velTableInstance& resources, velabsOutput& output)
      : facets_(document, resources, output), output_(output) {}

  bool collect(const annNode& root, const annTransform& placement) {
    const Waiting top{&root, viewScene::none, placement * root.transform, root.colour};
    // The root represents the document; it is a node of the scene only if it has a body.
    if (root.body.empty()) {
      add_children(top, viewScene::none);
    } else {
      waiting_.push_back(top);
    }
    while (!waiting_.empty()) {
      if (output_.cancelled()) return false;
      const Waiting next = waiting_.back();
      waiting_.pop_back();
      if (!take(next)) return false;
    }
    return true;
  }

  viewScene scene;

 private:
  bool take(const Waiting& next) {
    std::uint32_t mesh = viewScene::none;
    if (!next.node->body.empty()) {
      if (!is_finite(next.placement)) {
        output_.message(velabsERROR,
                        "\"" + vlt_one_line(next.node->label()) + "\" stands too far away, or is too large");
        return false;
      }
      std::shared_ptr<const annMesh> facets = facets_.of(*next.node);
      if (!facets) return false;
      const auto [known, is_new] = numbers_.try_emplace(facets.get(), static_cast<std::uint32_t>(scene.meshes.size()));
      if (is_new) scene.meshes.push_back(std::move(facets));
      mesh = known->second;
    }
    const auto number = static_cast<std::uint32_t>(scene.nodes.size());
    scene.nodes.push_back({next.node, next.parent, mesh, next.placement, next.colour});
    add_children(next, number);
    return true;
  }

  void add_children(const Waiting& parent, std::uint32_t number) {
    const auto& children = parent.node->children;
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
      const annNode& node = **child;
      waiting_.push_back({&node, number, parent.placement * node.transform, node.colour ? node.colour : parent.colour});
    }
  }

  vltFacets facets_;
  velabsOutput& output_;
  std::unordered_map<const annMesh*, std::uint32_t> numbers_;
  std::vector<Waiting> waiting_;
};

// True when boxes along the axes stay along the axes.
bool keeps_boxes(const annTransform& placement) {
  for (std::size_t row = 0; row < 12; row += 4) {
    int used = 0;
    for (std::size_t column = 0; column < 3; ++column) used += placement.m[row + column] != 0;
    if (used > 1) return false;
  }
  return true;
}

}  // namespace

std::optional<viewScene> view_make_scene(const annDocument& document, const velTableInstance& resources, double factor,
                                         velabsOutput& output) {
  Collector collector(document, resources, output);
  collector.scene.up = document.up;
  if (!collector.collect(document.root, annTransform::scaling(factor))) return std::nullopt;
  if (!collector.scene.meshes.empty()) return std::move(collector.scene);
  output.message(velabsERROR, "the model holds no shape");
  return std::nullopt;
}

annBox view_placed_box(const std::vector<annVector>& points, const annBox& box, const annTransform& placement) {
  if (keeps_boxes(placement)) {
    const annVector corner = placement.point(box.min);
    annBox placed{corner, corner};
    placed.include(placement.point(box.max));
    return placed;
  }
  const annVector first = placement.point(points.front());
  annBox placed{first, first};
  for (const annVector& point : points) placed.include(placement.point(point));
  return placed;
}
