#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "annColour.h"
#include "annExactShape.h"
#include "annMesh.h"
#include "annTransform.h"
#include "apExport.h"
#include "utString.h"

// The geometry of a part: a mesh, an exact shape, or both. Instances of the same part share it.
struct annBody {
  std::shared_ptr<const annMesh> mesh;
  std::shared_ptr<const annExactShape> shape;

  bool empty() const { return !mesh && !shape; }
};

// A part or an assembly of the model. The transform places it in its parent. The colour applies to everything below
// that has no other colour.
//
// `name` is that of the part or assembly, "nut", which all its instances share. `instance_name` is that of this
// instance, "nut_2"; null if it has none.
struct VELPLATFORM_API annNode {
  annNode() = default;
  explicit annNode(utString node_name) : name(std::move(node_name)) {}
  ~annNode();
  annNode(annNode&&) noexcept = default;
  annNode& operator=(annNode&&) noexcept = default;

  annNode& add_child(utString child_name);

  // The name to display where there is room for one: that of the instance, else that of the part.
  const utString& label() const { return instance_name.empty() ? name : instance_name; }

  utString name;
  utString instance_name;
  annTransform transform;
  std::optional<annColour> colour;
  annBody body;
  std::vector<std::unique_ptr<annNode>> children;
};
