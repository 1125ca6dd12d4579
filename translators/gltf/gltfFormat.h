#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "annTransform.h"
#include "vltFormat.h"

// Definitions of glTF 2.0 that its reader and its writers share.

extern const vltFormat gltf_format;         // for the reader, which reads both forms
extern const vltFormat gltf_text_format;    // JSON with a file of binary data beside it
extern const vltFormat gltf_binary_format;  // both in one file

// GLB: a header with magic number, version and length, then chunks with length, type and bytes. Lengths are multiples
// of four.
inline constexpr std::uint32_t glb_magic = 0x46546C67;
inline constexpr std::uint32_t glb_json_chunk = 0x4E4F534A;
inline constexpr std::uint32_t glb_binary_chunk = 0x004E4942;
inline constexpr std::size_t glb_head_size = 12;
inline constexpr std::size_t glb_chunk_head_size = 8;

enum gltfComponentType : std::uint32_t {
  gltfINT8 = 5120,
  gltfUINT8 = 5121,
  gltfINT16 = 5122,
  gltfUINT16 = 5123,
  gltfUINT32 = 5125,
  gltfFLOAT = 5126
};

enum gltfMode : std::uint32_t { gltfTRIANGLES = 4, gltfTRIANGLE_STRIP = 5, gltfTRIANGLE_FAN = 6 };

// Colours are linear in the file and sRGB in the model. Writing and reading keeps a colour of the model: exactly if
// the file stores it as text, to a millionth if it stores a 32-bit float.
double gltf_linear(float shown);
float gltf_shown(double linear);

// The up axis of glTF is +Y. A model with +Z up is written below one node that rotates it. These extras mark the node,
// so that the reader can remove it.
inline constexpr const char* gltf_up_key = "velUpAxis";
inline constexpr const char* gltf_up_z = "Z";
