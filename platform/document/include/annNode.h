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

// The geometry of a part: a mesh, an exact shape, or both. Nodes that show the same part share it.
struct annBody {
  std::shared_ptr<const annMesh> mesh;
  std::shared_ptr<const annExactShape> shape;

  bool empty() const { return !mesh && !shape; }
};

// A part or an assembly of the model. The transform places it in its parent; the colour holds for everything below that
// has none of its own.
//
// `name` is that of the part or assembly, "nut", which all its instances share. `instance_name` is that of this one
// instance, "nut_2"; null when the instance has no name of its own.
struct VELPLATFORM_API annNode {
  annNode() = default;
  explicit annNode(utString node_name) : name(std::move(node_name)) {}
  ~annNode();
  annNode(annNode&&) noexcept = default;
  annNode& operator=(annNode&&) noexcept = default;

  annNode& add_child(utString child_name);

  // What a person calls this node where there is room for one name: that of the instance, else that of the part.
  const utString& label() const { return instance_name.empty() ? name : instance_name; }

  utString name;
  utString instance_name;
  annTransform transform;
  std::optional<annColour> colour;
  annBody body;
  std::vector<std::unique_ptr<annNode>> children;
};
