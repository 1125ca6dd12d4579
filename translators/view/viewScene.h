#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// What is shown of a document: its nodes in the order of the tree, each behind its parent, and every distinct mesh
// once.
struct viewScene {
  static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

  struct Node {
    const annNode* node;
    std::uint32_t parent;  // `none` at the top
    std::uint32_t mesh;    // `none` for an assembly
    annTransform placement;
    std::optional<annColour> colour;
  };
  annUpAxis up = annUP_UNKNOWN;  // +Z is up in a scene without one
  std::vector<Node> nodes;
  std::vector<std::shared_ptr<const annMesh>> meshes;
};

// A factor that is not 1 goes into the placements. Nothing, and a message, when there is no body, when a shape has no
// facets to give, or when a placement is none that can be shown. The document must outlive the scene.
std::optional<viewScene> view_make_scene(const annDocument& document, const velTableInstance& resources, double factor,
                                         velabsOutput& output);

// The box around points where a placement puts them; there must be one at least.
annBox view_placed_box(const std::vector<annVector>& points, const annBox& box, const annTransform& placement);
