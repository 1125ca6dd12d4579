#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "annBox.h"
#include "annNode.h"
#include "annUpAxis.h"
#include "apExport.h"
#include "velLengthUnit.h"

// The neutral model: a tree of nodes in one length unit. The root is the document; its children are the top of the
// model. Without a unit the numbers are millimetres by convention.
struct VELPLATFORM_API annDocument {
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  annUpAxis up = annUP_UNKNOWN;
  annNode root;

  // Scales the top of the model, and with it everything below, by `factor`. The unit does not change.
  void scale(double factor);
};

// A node with a body, with its placement in the document and its effective colour.
struct annPlacedBody {
  const annNode* node;
  annTransform placement;
  std::optional<annColour> colour;
};

// Every node with a body, in tree order (a node before its children). Not recursive, so a deep tree is safe.
VELPLATFORM_API std::vector<annPlacedBody> ann_placed_bodies(const annDocument& document);

// The counts shown for a model. Everything is counted once for each placement. Faces are those of the exact shape if a
// body has one, else of its mesh; triangles and vertices are those of meshes. Vertices that several meshes share with
// the same placement are counted once. Unused vertices are counted and are included in the box. Without geometry there
// is no box.
struct annStatistics {
  std::size_t parts = 0;
  std::size_t solids = 0;  // from exact shapes
  std::size_t faces = 0;
  std::size_t triangles = 0;
  std::size_t vertices = 0;
  std::optional<annBox> box;
};
// Computing the box of exact shapes is slow; `with_box` = false skips it.
VELPLATFORM_API annStatistics ann_statistics(const annDocument& document, bool with_box = true);

// The same for a list of bodies with their placements.
VELPLATFORM_API annStatistics ann_statistics(const std::vector<annPlacedBody>& bodies, bool with_box);
