#pragma once

#include <cstddef>
#include <string>

#include "viewMesh.h"

// A mesh as the page holds it, little-endian, in this order, each block from a multiple of four bytes on:
//   positions  three 16-bit numbers for each vertex, 0 to 65535 across the mesh's box
//   normals    two signed 16-bit numbers for each vertex: the octahedron unfolded into a square
//   colours    red, green, blue and opacity in a byte each for each vertex, where the mesh has them
//   corners    for each corner how far its vertex lies below the next one that no corner has used yet, and 0 for that
//              one itself; whole numbers of seven bits a byte, the lowest first, the top bit set in all but the last
//   edges      for each line its first vertex less that of the line before, then the second less the first; numbers of
//              the same form, negative n as -2n - 1, others as 2n
struct viewPacked {
  std::string bytes;
  std::size_t corner_bytes = 0;
  std::size_t edge_bytes = 0;
};

viewPacked view_pack(const viewMesh& mesh);
