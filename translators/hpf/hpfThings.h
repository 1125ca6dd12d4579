#pragma once

#include <memory>
#include <vector>

#include "annExactShape.h"
#include "annMesh.h"
#include "hpfInput.h"

// The vertices, meshes and shapes of a file, by index. Each has one chunk, after those that it refers to, and optional
// chunks for the normals of corners. The functions read the current chunk of `input`; false after an error, which was
// reported.
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
