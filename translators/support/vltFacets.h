#pragma once

#include <memory>
#include <unordered_map>

#include "annDocument.h"
#include "apStatus.h"
#include "velTableInstance.h"
#include "velabsOutput.h"

// The bodies of a document as facets, for writers that keep its tree. An exact shape without a mesh is converted once,
// whatever its number of instances; several shapes are converted in parallel. CHORD_TOLERANCE is in the document's
// unit, at the largest instance, and ANGLE_TOLERANCE in degrees. 0 derives them from the size of the shape; values
// that are too small are raised, with a warning. Shapes are identified by address: the document must outlive this
// object.
class vltFacets {
 public:
  vltFacets(const annDocument& document, const velTableInstance& resources, velabsOutput& output);

  // The facets of a node that has a body; nodes with the same body get the same mesh. Null when its shape has no
  // facets, with a message that names the node unless the work is cancelled.
  std::shared_ptr<const annMesh> of(const annNode& node);

 private:
  struct Facets {
    std::shared_ptr<const annMesh> mesh;
    apStatus status;  // failed with a mesh: the mesh is incomplete
    bool told = false;
    double enlargement = 0;  // maximum scale factor of the instances
  };
  void make_all();
  void tell_least(const annTolerance& raised);

  const annDocument& document_;
  annTolerance tolerance_;
  velabsOutput& output_;
  std::unordered_map<const annExactShape*, Facets> made_;
};
