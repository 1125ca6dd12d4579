#pragma once

#include <memory>
#include <unordered_map>

#include "annDocument.h"
#include "apStatus.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The bodies of one document as facets, for writers that keep its tree. An exact shape without a mesh is turned into
// facets once, however often it is shown, as closely as CHORD_TOLERANCE (in the document's unit, where its placements
// are largest) and ANGLE_TOLERANCE (in degrees) say; 0 leaves that to the size of the shape, and a warning tells of
// tolerances that are too small. Several shapes are turned at once. Shapes are told apart by their address: the
// document must outlive this.
class vltFacets {
 public:
  vltFacets(const annDocument& document, const velTableInstance& resources, velabsOutput& output);

  // The facets of a node that has a body; nodes with the same body get the same mesh. Null when its shape has none to
  // give: a message names the node, unless the work is cancelled.
  std::shared_ptr<const annMesh> of(const annNode& node);

 private:
  struct Facets {
    std::shared_ptr<const annMesh> mesh;
    apStatus status;  // failed beside a mesh: the mesh is not whole
    bool told = false;
    double enlargement = 0;  // by the placement that makes the shape largest
  };
  void make_all();
  void tell_least(const annTolerance& raised);

  const annDocument& document_;
  annTolerance tolerance_;
  velabsOutput& output_;
  std::unordered_map<const annExactShape*, Facets> made_;
};
