#pragma once

#include "annTransform.h"
#include "gltfValue.h"

// Reads the placement of a node in its parent: its matrix, or its translation, rotation and scale. `factor` scales
// translations, as it does coordinates. False, with a message, when they are invalid.
bool gltf_read_placement(const gltfValue& node, double factor, annTransform& placement);
