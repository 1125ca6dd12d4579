#pragma once

#include "annTransform.h"
#include "gltfValue.h"

// Where a node stands in its parent: its matrix, or its translation, rotation and scale. `factor` makes translations
// longer, as it does coordinates. False, and a message, when they are not as they must be.
bool gltf_read_placement(const gltfValue& node, double factor, annTransform& placement);
