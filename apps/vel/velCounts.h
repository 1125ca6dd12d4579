#pragma once

#include <optional>
#include <string>
#include <vector>

#include "annDocument.h"
#include "velJson.h"

// The numbers of parts, faces and so on of a model. Triangles and vertices are unknown if any exact shape has no mesh,
// because only a writer makes the facets of such a shape.
struct velCounts {
  std::size_t parts = 0;
  std::size_t solids = 0;
  std::size_t faces = 0;
  std::optional<std::size_t> triangles;
  std::optional<std::size_t> vertices;
};

velCounts vel_counts(const std::vector<annPlacedBody>& parts);
velCounts vel_counts(const std::vector<annPlacedBody>& parts, const annStatistics& statistics);

// A JSON object with "parts", "solids", "faces", "triangles" and "vertices". Unknown counts are null.
velJson vel_counts_as_json(const velCounts& counts);
