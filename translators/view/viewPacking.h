#pragma once

#include <cstddef>
#include <string>

#include "viewMesh.h"

// A mesh in the page's format, little-endian. The blocks are in this order and start at multiples of four bytes:
//   positions  three 16-bit numbers for each vertex, 0 to 65535 across the mesh's box
//   normals    two signed 16-bit numbers for each vertex: the octahedron unfolded into a square
//   colours    red, green, blue and opacity in a byte each for each vertex, where the mesh has them
//   corners    for each corner how far its vertex index is below the next unused index; 0 is that index. Each is an
//              integer of seven bits per byte, lowest first; the top bit is set in all bytes but the last
//   edges      for each line its first vertex minus the first vertex of the line before, then its second minus its
//              first vertex; the same integers, with negative n as -2n - 1 and others as 2n
struct viewPacked {
  std::string bytes;
  std::size_t corner_bytes = 0;
  std::size_t edge_bytes = 0;
};

viewPacked view_pack(const viewMesh& mesh);
