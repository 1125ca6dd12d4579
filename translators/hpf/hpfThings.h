#pragma once

#include <memory>
#include <vector>

#include "annExactShape.h"
#include "annMesh.h"
#include "hpfInput.h"

// What the nodes of a file show, by number: each was one chunk, with further ones for the normals of corners, and
// stands behind what it refers to. The operations read the chunk that `input` has come to; false after a failure, which
// was told.
class hpfThings {
 public:
  bool read_vertices(hpfInput& input);
  bool read_normal_pool(hpfInput& input);
  bool read_mesh(hpfInput& input);
  bool read_corner_normals(hpfInput& input);
  bool read_shape(hpfInput& input);

  const std::vector<std::shared_ptr<annMesh>>& meshes() const { return meshes_; }
  const std::vector<std::shared_ptr<const annExactShape>>& shapes() const { return shapes_; }

 private:
  std::vector<std::shared_ptr<annVertices>> vertices_;
  std::vector<std::shared_ptr<annMesh>> meshes_;
  std::vector<std::shared_ptr<const annExactShape>> shapes_;
};
