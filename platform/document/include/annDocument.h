#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "annBox.h"
#include "annNode.h"
#include "annUpAxis.h"
#include "apExport.h"
#include "velLengthUnit.h"

// The neutral model: a tree of nodes in one length unit. The root stands for the document; its children are what a
// person would call the top of the model. The numbers of a document without a unit are millimetres by convention.
struct VELPLATFORM_API annDocument {
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  annUpAxis up = annUP_UNKNOWN;
  annNode root;

  // Makes what is at the top of the model, with all that is below, so many times as large. The unit stays.
  void scale(double factor);
};

// A node with a body, where it stands in the document and the colour that it shows.
struct annPlacedBody {
  const annNode* node;
  annTransform placement;
  std::optional<annColour> colour;
};

// Every node with a body, in the order of the tree (a node before its children). Recursion plays no part, so a deep
// tree is safe.
VELPLATFORM_API std::vector<annPlacedBody> ann_placed_bodies(const annDocument& document);

// What a person asks of a model first, everything counted once for each place that it stands in. Faces are those of the
// exact shape where a body has one, else of its mesh; triangles and vertices are those of meshes. Vertices that several
// meshes share in one place count once; unused ones count, and take part in the box. No box without any geometry.
struct annStatistics {
  std::size_t parts = 0;
  std::size_t solids = 0;  // of exact shapes
  std::size_t faces = 0;
  std::size_t triangles = 0;
  std::size_t vertices = 0;
  std::optional<annBox> box;
};
// Measuring the box of exact shapes takes its time; `with_box` leaves it out.
VELPLATFORM_API annStatistics ann_statistics(const annDocument& document, bool with_box = true);

// The same for a list of parts, each counted once as it is in itself.
VELPLATFORM_API annStatistics ann_statistics(const std::vector<annPlacedBody>& bodies, bool with_box);
