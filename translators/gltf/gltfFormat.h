#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "annTransform.h"
#include "vltFormat.h"

// The facts of glTF 2.0 that its reader and its writers share.

extern const vltFormat gltf_format;         // of the reader: it reads both forms
extern const vltFormat gltf_text_format;    // JSON with a file of binary data beside it
extern const vltFormat gltf_binary_format;  // both in one file

// GLB: a head of magic, version and length, then chunks of length, kind and bytes, each a multiple of four long.
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

// Colours are linear in the file and as a display shows them in the model. A number of the model is the same again
// after the way to the file and back: exactly where the file holds it as text, to a millionth as a 32-bit float.
double gltf_linear(float shown);
float gltf_shown(double linear);

// The up axis of glTF is +Y. A model with +Z up stands below one node that turns it; these extras mark the node, so
// that reading can remove it.
inline constexpr const char* gltf_up_key = "velUpAxis";
inline constexpr const char* gltf_up_z = "Z";
