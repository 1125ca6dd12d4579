#pragma once

#include <memory>
#include <vector>

#include "annExactShape.h"
#include "annMesh.h"
#include "hpfInput.h"

// What the nodes of a file show, by number: each was one chunk, and stands behind what it refers to. The operations
// read the chunk that `input` has come to; false after a failure, which was told.
class hpfThings {
 public:
  bool read_vertices(hpfInput& input);
  bool read_mesh(hpfInput& input);
  bool read_shape(hpfInput& input);

  const std::vector<std::shared_ptr<const annMesh>>& meshes() const { return meshes_; }
  const std::vector<std::shared_ptr<const annExactShape>>& shapes() const { return shapes_; }

 private:
  std::vector<std::shared_ptr<annVertices>> vertices_;
  std::vector<std::shared_ptr<const annMesh>> meshes_;
  std::vector<std::shared_ptr<const annExactShape>> shapes_;
};
