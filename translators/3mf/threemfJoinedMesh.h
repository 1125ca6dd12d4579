#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "annMesh.h"
#include "vltPlacedMesh.h"

// How numbers of a mesh are converted to those of the file.
struct threemfNumberForm {
  double factor = 1;          // for all lengths
  int digits = 0;             // significant digits; 0: as many as needed to read back the same number
  double join_tolerance = 0;  // in the unit of the file, between vertices without placement
};

// A mesh in the form of a 3MF file: triangles over vertices that are joined by position, so that faces share vertices
// even where the source splits them for normals, texture coordinates or colours. Vertices are joined when their
// coordinates in the file are equal, or when they are within the tolerance of the first of them. A triangle with two
// equal vertices is skipped: 3MF forbids it.
struct threemfJoinedMesh {
  // Coordinates as in the file, without normals and materials; use those of the source.
  annMesh mesh;
  // The source face of each triangle; empty when the source has no materials.
  std::vector<std::uint32_t> faces;
  // The source vertex of each corner; empty when its vertices have no colours.
  std::vector<std::uint32_t> source_vertices;
  // Skipped triangles.
  std::size_t collapsed = 0;
  // True when a coordinate overflows; there are no triangles then.
  bool overflow = false;

  threemfJoinedMesh(const annMesh& source, const threemfNumberForm& form);

 private:
  // For each vertex of the source that is written, in ascending order, the index of the joined vertex. `written` stays
  // empty when all are written.
  std::vector<std::uint32_t> join_vertices(const annMesh& source, const threemfNumberForm& form,
                                           std::vector<std::uint32_t>& written);
};

// The meshes of all bodies, each joined once. The bodies must outlive this object.
class threemfJoinedMeshes {
 public:
  threemfJoinedMeshes(const std::vector<vltPlacedMesh>& bodies, const threemfNumberForm& form);

  const threemfJoinedMesh& of(const annMesh& source) const { return meshes_.at(&source); }

  bool overflow() const { return overflow_; }
  std::size_t triangle_count() const { return triangles_; }
  // Skipped triangles.
  std::size_t collapsed_count() const { return collapsed_; }

 private:
  std::unordered_map<const annMesh*, threemfJoinedMesh> meshes_;
  bool overflow_ = false;
  std::size_t triangles_ = 0;
  std::size_t collapsed_ = 0;
};
