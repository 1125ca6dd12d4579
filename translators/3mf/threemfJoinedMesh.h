#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "annMesh.h"
#include "vltPlacedMesh.h"

// How the numbers of a mesh become those of the file.
struct threemfNumberForm {
  double factor = 1;          // for all lengths
  int digits = 0;             // significant ones; 0: as many as it takes to read back the same number
  double join_tolerance = 0;  // in the unit of the file
};

// A mesh as a 3MF file holds it: triangles over vertices that are joined by position. Faces that meet then share
// vertices even where the source splits them for normals, texture coordinates or colours. Vertices are joined when the
// file would give them equal coordinates, or when they lie within the tolerance of the first of them. A triangle with
// two equal vertices is left out: 3MF forbids it.
struct threemfJoinedMesh {
  // Coordinates are those of the file. Without normals and looks: those of the source hold.
  annMesh mesh;
  // For each triangle the face of the source; empty when the source has no materials.
  std::vector<std::uint32_t> faces;
  // For each corner the vertex of the source; empty when its vertices have no colours.
  std::vector<std::uint32_t> source_vertices;
  // Triangles that were left out.
  std::size_t collapsed = 0;
  // A coordinate is too large for a number; there are no triangles then.
  bool overflow = false;

  threemfJoinedMesh(const annMesh& source, const threemfNumberForm& form);

 private:
  std::vector<std::uint32_t> join_vertices(const annMesh& source, const threemfNumberForm& form);
};

// The meshes of all bodies, each joined once. The bodies must outlive this.
class threemfJoinedMeshes {
 public:
  threemfJoinedMeshes(const std::vector<vltPlacedMesh>& bodies, const threemfNumberForm& form);

  const threemfJoinedMesh& of(const annMesh& source) const { return meshes_.at(&source); }

  bool overflow() const { return overflow_; }
  std::size_t triangle_count() const { return triangles_; }
  // Triangles that were left out.
  std::size_t collapsed_count() const { return collapsed_; }

 private:
  std::unordered_map<const annMesh*, threemfJoinedMesh> meshes_;
  bool overflow_ = false;
  std::size_t triangles_ = 0;
  std::size_t collapsed_ = 0;
};
