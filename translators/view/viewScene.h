#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The visible content of a document: its nodes in tree order, each after its parent, and every distinct mesh once.
struct viewScene {
  static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

  struct Node {
    const annNode* node;
    std::uint32_t parent;  // `none` at the top
    std::uint32_t mesh;    // `none` for an assembly
    annTransform placement;
    std::optional<annColour> colour;
  };
  annUpAxis up = annUP_UNKNOWN;  // unknown is drawn as +Z
  std::vector<Node> nodes;
  std::vector<std::shared_ptr<const annMesh>> meshes;
};

// `factor` scales the placements. Empty, with a message, when there is no body, when a shape has no facets, or when a
// placement is not finite. The document must outlive the scene.
std::optional<viewScene> view_make_scene(const annDocument& document, const velTableInstance& resources, double factor,
                                         velabsOutput& output);

// The box around transformed points; there must be at least one point.
annBox view_placed_box(const std::vector<annVector>& points, const annBox& box, const annTransform& placement);
