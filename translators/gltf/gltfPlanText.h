#pragma once

#include <string>

#include "gltfPlan.h"

// The JSON for a plan up to the length of its buffer. In GLB, gltf_end_of_text follows; in text files, the uri of the
// buffer and then gltf_end_of_text. Without data there is no buffer.
std::string gltf_text_of(const gltfPlan& plan);

// The end of the JSON after `gltf_text_of`.
std::string gltf_end_of_text(const gltfPlan& plan);
