#pragma once

#include <string>

#include "gltfPlan.h"

// The JSON for a plan, but for what follows the length of its one buffer: "}]}" when the data stands in the same file,
// else its uri and the same. Without data there is no buffer.
std::string gltf_text_of(const gltfPlan& plan);

// What ends the JSON that `gltf_text_of` gives.
std::string gltf_end_of_text(const gltfPlan& plan);
