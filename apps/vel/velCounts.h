#pragma once

#include <optional>
#include <string>
#include <vector>

#include "annDocument.h"
#include "velJson.h"

// What a model is made of. The facets that an exact shape becomes are known only to a writer that makes them: with such
// a shape there is no count of triangles and vertices, unless it came with a mesh.
struct velCounts {
  std::size_t parts = 0;
  std::size_t solids = 0;
  std::size_t faces = 0;
  std::optional<std::size_t> triangles;
  std::optional<std::size_t> vertices;
};

velCounts vel_counts(const std::vector<annPlacedBody>& parts);
velCounts vel_counts(const std::vector<annPlacedBody>& parts, const annStatistics& statistics);

// As JSON has them: "parts", "solids", "faces", "triangles" and "vertices"; what is not known is null.
velJson vel_counts_as_json(const velCounts& counts);
