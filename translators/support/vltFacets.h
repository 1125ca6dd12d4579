#pragma once

#include <memory>
#include <unordered_map>

#include "annDocument.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The bodies of one document as facets, for writers that keep its tree. An exact shape without a mesh is turned into
// facets once, however often it is shown, as closely as CHORD_TOLERANCE (in the document's unit) and ANGLE_TOLERANCE
// (in degrees) say. Shapes are told apart by their address: the document must outlive this.
class vltFacets {
 public:
  vltFacets(const annDocument& document, const velTableInstance& resources, velabsOutput& output);

  // The facets of a node that has a body; nodes with the same body get the same mesh. Null, and a message that names
  // the node, when its shape has none to give.
  std::shared_ptr<const annMesh> of(const annNode& node);

 private:
  annTolerance tolerance_;
  velabsOutput& output_;
  std::unordered_map<const annExactShape*, std::shared_ptr<const annMesh>> made_;
};
