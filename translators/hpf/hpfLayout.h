#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "hpfChecksum.h"

// The layout of an HPF file; see docs/hpf.md. Everything is little-endian. Records and arrays start at multiples of 64
// bytes, with zeros as padding.

static_assert(std::endian::native == std::endian::little, "records are read as they lie in memory");
static_assert(sizeof(double) == 8 && sizeof(float) == 4);

inline constexpr std::string_view hpf_mark("\x89HPF\r\n\x1a\n", 8);
inline constexpr std::uint32_t hpf_major = 1;
inline constexpr std::uint32_t hpf_minor = 1;  // of files that need it; others are 1.0

inline constexpr std::size_t hpf_alignment = 64;
constexpr std::uint64_t hpf_aligned(std::uint64_t size) {
  return (size + hpf_alignment - 1) / hpf_alignment * hpf_alignment;
}

// The start of the file in every version. `sum` is the checksum of these 64 bytes with zeros in place of itself.
struct hpfFileHead {
  std::array<char, 8> mark;
  std::uint32_t major;
  std::uint32_t minor;
  std::uint64_t length;  // of the whole file
  std::uint64_t spare[3];
  hpfSum sum;
};

// Before each chunk; `before` is the checksum of the bytes between the previous header and this one.
struct hpfChunkHead {
  std::array<char, 4> name;
  std::uint32_t flags;
  std::uint64_t length;  // of the content, a multiple of 64
  std::uint64_t place;   // offset of this header in the file
  std::uint64_t spare;
  hpfSum before;
  hpfSum sum;
};

// A reader that does not know a chunk with this flag cannot read the file.
inline constexpr std::uint32_t hpf_critical = 1;

inline constexpr std::array<char, 4> hpf_vertices_chunk{'V', 'E', 'R', 'T'};
inline constexpr std::array<char, 4> hpf_mesh_chunk{'M', 'E', 'S', 'H'};
inline constexpr std::array<char, 4> hpf_shape_chunk{'S', 'H', 'A', 'P'};
inline constexpr std::array<char, 4> hpf_tree_chunk{'T', 'R', 'E', 'E'};
inline constexpr std::array<char, 4> hpf_end_chunk{'E', 'N', 'D', ' '};

// Since version 1.1, and not critical.
inline constexpr std::array<char, 4> hpf_pool_chunk{'N', 'P', 'O', 'L'};
inline constexpr std::array<char, 4> hpf_corner_normals_chunk{'C', 'N', 'R', 'M'};
inline constexpr std::array<char, 4> hpf_instance_names_chunk{'I', 'N', 'S', 'T'};
inline constexpr std::array<char, 4> hpf_up_chunk{'U', 'P', 'A', 'X'};

// Followed by points, normals and colours.
struct hpfVerticesHead {
  std::uint64_t points;
  std::uint64_t normals;
  std::uint64_t colours;
  std::uint64_t spare[5];
};

// Followed by corners, face starts, materials of faces, materials, and names of materials.
struct hpfMeshHead {
  std::uint64_t vertices;
  std::uint64_t corners;
  std::uint64_t face_starts;
  std::uint64_t face_materials;
  std::uint64_t materials;
  std::uint64_t name_bytes;
  std::uint64_t spare[2];
};

// The length of a name that was never set.
inline constexpr std::uint64_t hpf_no_name = ~std::uint64_t{0};

struct hpfMaterial {
  std::uint64_t name_length;
  std::array<float, 4> colour;
};

// Followed by the kind and the bytes of the shape.
struct hpfShapeHead {
  std::uint64_t kind_length;
  std::uint64_t bytes;
  std::uint64_t solids;
  std::uint64_t faces;
  std::uint64_t has_box;
  std::array<double, 6> box;
  std::uint64_t spare[5];
};

// Followed by the nodes and their names.
struct hpfTreeHead {
  std::uint64_t nodes;
  std::uint64_t name_bytes;
  std::uint64_t unit;
  std::uint64_t spare[5];
};

// Followed by the normals.
struct hpfPoolHead {
  std::uint64_t vertices;
  std::uint64_t normals;
  std::uint64_t spare[6];
};

// Followed by the normal index of each corner.
struct hpfCornerNormalsHead {
  std::uint64_t mesh;
  std::uint64_t corners;
  std::uint64_t spare[6];
};

// Followed by the records and the names.
struct hpfInstanceNamesHead {
  std::uint64_t records;
  std::uint64_t name_bytes;
  std::uint64_t spare[6];
};

struct hpfInstanceName {
  std::uint32_t node;
  std::uint32_t spare;
  std::uint64_t name_length;
};

struct hpfUpHead {
  std::uint64_t axis;  // 1 for Y, 2 for Z
  std::uint64_t spare[7];
};

// No parent, no mesh or no shape.
inline constexpr std::uint32_t hpf_none = ~std::uint32_t{0};
inline constexpr std::uint32_t hpf_has_colour = 1;

struct hpfNode {
  std::uint32_t parent;
  std::uint32_t flags;
  std::uint32_t mesh;
  std::uint32_t shape;
  std::array<double, 12> transform;
  std::array<float, 4> colour;
  std::uint64_t name_length;
};

static_assert(sizeof(hpfFileHead) == 64 && sizeof(hpfChunkHead) == 64 && sizeof(hpfVerticesHead) == 64);
static_assert(sizeof(hpfMeshHead) == 64 && sizeof(hpfMaterial) == 24 && sizeof(hpfShapeHead) == 128);
static_assert(sizeof(hpfTreeHead) == 64 && sizeof(hpfNode) == 136);
static_assert(sizeof(hpfPoolHead) == 64 && sizeof(hpfCornerNormalsHead) == 64 && sizeof(hpfUpHead) == 64);
static_assert(sizeof(hpfInstanceNamesHead) == 64 && sizeof(hpfInstanceName) == 16);

// The checksum to store in a header.
template <typename Head>
hpfSum hpf_sum_of_head(Head head) {
  head.sum = {};
  return hpfChecksum::of({reinterpret_cast<const char*>(&head), sizeof head});
}
