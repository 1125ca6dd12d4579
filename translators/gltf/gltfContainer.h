#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "velabsOutput.h"

// The pieces of a file: the JSON, and in GLB the binary data that may follow it.
struct gltfContainer {
  std::string_view json;
  std::size_t json_offset = 0;
  std::optional<std::string_view> binary;
};

// Takes apart the bytes of either form. Nothing, and a message with the place, when a GLB is not laid out as it says;
// bytes behind its end are passed over with a warning.
std::optional<gltfContainer> gltf_take_apart(std::string_view bytes, velabsOutput& output);
