#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "velabsOutput.h"

// The parts of a file: the JSON, and in GLB the optional binary data.
struct gltfContainer {
  std::string_view json;
  std::size_t json_offset = 0;
  std::optional<std::string_view> binary;
};

// Splits a file of either form. Empty, with a message and the position, when the layout of a GLB is invalid. Bytes
// after its end are skipped with a warning.
std::optional<gltfContainer> gltf_take_apart(std::string_view bytes, velabsOutput& output);
